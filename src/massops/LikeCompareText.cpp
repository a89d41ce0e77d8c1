// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "massops/LikeCompareText.h"

#include "platform/CodePage.h"
#include "platform/HostPath.h"

#include <algorithm>

namespace calyvox {

LikePattern::LikePattern(std::string_view pattern, CompareMode mode) {
    for (std::size_t i = 0; i < folded_.size(); ++i) {
        const char byte = static_cast<char>(i);
        folded_[i] = static_cast<unsigned char>(mode == CompareMode::NoCase ? CodePage::Upper(byte) : byte);
    }
    std::u32string characters;
    for (std::size_t at = 0; at < pattern.size();)
        characters += TakeCharacter(pattern, at);
    for (std::size_t at = 0; at < characters.size();) {
        const char32_t character = characters[at++];
        if (character == U'[')
            at = AddList(characters, at);
        else
            AddItem(character);
    }
}

// Bytes by their number, escapes behind them by what they stand for. A backslash in a name is an escape and
// in a tag it is none: both are the one character.
char32_t LikePattern::TakeCharacter(std::string_view text, std::size_t& at) const {
    const char byte = text[at];
    if (byte == HostPath::kEscapeLead && text.size() - at >= HostPath::kEscapeLength) {
        constexpr char32_t kWithoutCharacter = 0xDC00;
        const std::u32string units = HostPath::Units(text.substr(at, HostPath::kEscapeLength));
        if (units.size() == 1) {
            at += HostPath::kEscapeLength;
            const char32_t value = units[0] - kWithoutCharacter;
            return value < 0x80 ? folded_.at(value) : static_cast<char32_t>(folded_.size()) + units[0];
        }
    }
    ++at;
    return folded_[static_cast<unsigned char>(byte)];
}

void LikePattern::AddItem(char32_t character) {
    Item item;
    item.Letter = character;
    if (character == U'*') {
        if (!items_.empty() && items_.back().Is == Kind::Many) return;
        item.Is = Kind::Many;
    }
    if (character == U'?') item.Is = Kind::One;
    if (character == U'#') item.Is = Kind::Digit;
    items_.push_back(std::move(item));
}

// Begins behind the "[" and returns the place behind the list.
std::size_t LikePattern::AddList(const std::u32string& pattern, std::size_t at) {
    const std::size_t end = pattern.find(U']', at);
    if (end == std::u32string::npos) {
        valid_ = false;
        return pattern.size();
    }
    const bool bracket = end == at && pattern.substr(end, 2) == U"]]";
    if (bracket || (end == at + 1 && pattern[at] == U'!')) {
        AddItem(pattern[at]);
        return at + 2;
    }
    Item list;
    list.Is = Kind::List;
    list.Outside = pattern[at] == U'!';
    for (at += list.Outside ? 1 : 0; at < end;) {
        const char32_t first = pattern[at++];
        char32_t last = first;
        if (at + 1 < end && pattern[at] == U'-') {
            last = pattern[at + 1];
            at += 2;
        }
        if (last < first) valid_ = false;
        list.Ranges.emplace_back(first, last);
    }
    items_.push_back(std::move(list));
    return end + 1;
}

bool LikePattern::Fits(const Item& item, char32_t character) {
    switch (item.Is) {
    case Kind::Many:
        return false;
    case Kind::One:
        return true;
    case Kind::Digit:
        return character >= U'0' && character <= U'9';
    case Kind::Letter:
        return character == item.Letter;
    case Kind::List:
        break;
    }
    const bool inside = std::any_of(item.Ranges.begin(), item.Ranges.end(), [&](const auto& range) {
        return character >= range.first && character <= range.second;
    });
    return inside != item.Outside;
}

std::size_t LikePattern::Find(const Item& item, std::string_view text, std::size_t at) const {
    if (item.Is == Kind::Letter)
        while (at < text.size() && text[at] != HostPath::kEscapeLead &&
               folded_[static_cast<unsigned char>(text[at])] != item.Letter)
            ++at;
    for (std::size_t next = at; at < text.size(); at = next)
        if (Fits(item, TakeCharacter(text, next))) break;
    return at;
}

// Where the text does not go on as the pattern does, what the newest "*" stands for grows; the older ones
// have nothing to gain from another.
bool LikePattern::Matches(std::string_view text) const {
    if (!valid_) return false;
    const auto end = items_.end();
    auto item = items_.begin();
    auto behindMany = end;
    bool many = false;
    std::size_t manyEnd = 0;
    for (std::size_t at = 0;;) {
        std::size_t next = at;
        if (item != end && item->Is == Kind::Many) {
            behindMany = ++item;
            if (item == end) return true;
            many = true;
            at = manyEnd = Find(*item, text, at);
        } else if (at == text.size()) {
            return item == end;
        } else if (item != end && Fits(*item, TakeCharacter(text, next))) {
            ++item;
            at = next;
        } else if (many) {
            item = behindMany;
            TakeCharacter(text, manyEnd);
            at = manyEnd = Find(*item, text, manyEnd);
        } else {
            return false;
        }
    }
}

bool LikeCompareText(std::string_view text, std::string_view pattern) {
    return LikePattern(pattern, CompareMode::NoCase).Matches(text);
}

} // namespace calyvox
