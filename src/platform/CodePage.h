// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The 8-bit code page of all text below the windows: page 1252, one char one byte. Letters in two cases are
/// those of ISO-8859-1 and the pairs 8A/9A, 8C/9C, 8E/9E; FF has no other case. The five bytes that the page
/// leaves undefined (81 8D 8F 90 9D) stand for the code points of the same number, so bytes to UTF-8 and
/// back is exact for all 256 of them. Nothing here fails but LeadingByte and LeadingLong.
namespace calyvox::CodePage {

char Upper(char byte);
char Lower(char byte);
std::string Upper(std::string_view text);
std::string Lower(std::string_view text);

bool EqualNoCase(std::string_view a, std::string_view b);
/// Below, equal to or above 0 as a stands before, with or behind b by upper-cased bytes.
int CompareNoCase(std::string_view a, std::string_view b);
/// 0-based place of the first match, std::string_view::npos without one.
std::size_t FindNoCase(std::string_view text, std::string_view what, std::size_t from = 0);
bool EndsWithNoCase(std::string_view text, std::string_view end);

/// Cuts blanks at both ends: the space character alone, tabs and NULs stay.
std::string Trim(std::string_view text);

/// The number that the text begins with: blanks, a sign, digits, one point. 0 without one.
double LeadingNumber(std::string_view text);
/// The same as 8-bit unsigned and as 32-bit signed, rounded half to even. Failure 6 where it does not fit.
std::uint8_t LeadingByte(std::string_view text);
std::int32_t LeadingLong(std::string_view text);

std::string ToUtf8(std::string_view text);
/// Characters that the page lacks, and bytes that are no UTF-8, become the substitute, one each.
std::string FromUtf8(std::string_view utf8, char substitute = '?');

char32_t ToCodePoint(char byte);
/// False where the page has no byte for the code point.
bool FromCodePoint(char32_t codePoint, char& byte);

/// One character of UTF-8. Length is 0 where the text begins with no valid one: overlong forms, surrogates
/// and cut-off sequences are not valid.
struct Utf8Character {
    char32_t CodePoint = 0;
    std::size_t Length = 0;
};
Utf8Character DecodeUtf8(std::string_view utf8);
void AppendUtf8(std::string& utf8, char32_t codePoint);

} // namespace calyvox::CodePage
