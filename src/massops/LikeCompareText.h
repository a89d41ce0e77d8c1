// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace calyvox {

enum class CompareMode { Exact = 0, NoCase = 1 };

/// A wildcard pattern, made once for many texts; the whole text is held against the whole pattern.
///   *       any number of characters, none included
///   ?       one character
///   #       one decimal digit
///   [a-cx]  one character of the list, [!a-cx] one outside it; ranges go by the bytes of the code page, in
///   upper
///           case where case does not count
/// "[]]" is the letter "]", "[!]" the letter "!", and any other "[]" a list that no character is in. An
/// escape of a name (see HostPath) is one character, in the pattern too. A list that is not closed and a
/// range that runs backwards make a pattern that matches nothing.
class LikePattern {
public:
    LikePattern(std::string_view pattern, CompareMode mode);

    bool Matches(std::string_view text) const;

private:
    enum class Kind { Many, One, Digit, Letter, List };
    struct Item {
        Kind Is = Kind::Letter;
        char32_t Letter = 0;
        bool Outside = false; // of the ranges
        std::vector<std::pair<char32_t, char32_t>> Ranges = {};
    };

    char32_t TakeCharacter(std::string_view text, std::size_t& at) const;
    void AddItem(char32_t character);
    std::size_t AddList(const std::u32string& pattern, std::size_t at);
    // The next place where the text may go on with the item, or the text's end.
    std::size_t Find(const Item& item, std::string_view text, std::size_t at) const;
    static bool Fits(const Item& item, char32_t character);

    std::array<unsigned char, 256> folded_{};
    std::vector<Item> items_;
    bool valid_ = true;
};

/// Whether the text matches the pattern, upper and lower case alike.
bool LikeCompareText(std::string_view text, std::string_view pattern);

} // namespace calyvox
