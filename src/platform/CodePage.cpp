// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/CodePage.h"

#include "platform/Failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace calyvox::CodePage {

namespace {

// The code points of the bytes 80 to 9F; all others stand for the code point of the same number.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr unsigned char UpperByte(unsigned char c) {
    if (c >= 'a' && c <= 'z') return c - 32;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 32;
    if (c == 0x9A || c == 0x9C || c == 0x9E) return c - 16;
    return c;
}

constexpr std::array<char, 256> MakeUpperTable() {
    std::array<char, 256> table{};
    for (int i = 0; i < 256; ++i)
        table[i] = static_cast<char>(UpperByte(static_cast<unsigned char>(i)));
    return table;
}

constexpr std::array<char, 256> MakeLowerTable() {
    std::array<char, 256> table{};
    for (int i = 0; i < 256; ++i)
        table[i] = static_cast<char>(i);
    for (int i = 0; i < 256; ++i) {
        const auto upper = UpperByte(static_cast<unsigned char>(i));
        if (upper != i) table[upper] = static_cast<char>(i);
    }
    return table;
}

constexpr auto kUpper = MakeUpperTable();
constexpr auto kLower = MakeLowerTable();

double RoundedWithin(std::string_view text, double low, double high) {
    const double rounded = std::nearbyint(LeadingNumber(text));
    if (!(rounded >= low && rounded <= high)) throw Failure(Failure::kOverflow, "CodePage");
    return rounded;
}

} // namespace

char Upper(char byte) { return kUpper[static_cast<unsigned char>(byte)]; }
char Lower(char byte) { return kLower[static_cast<unsigned char>(byte)]; }

std::string Upper(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        c = Upper(c);
    return result;
}

std::string Lower(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        c = Lower(c);
    return result;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Upper(x) == Upper(y); });
}

int CompareNoCase(std::string_view a, std::string_view b) {
    const std::size_t shared = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < shared; ++i) {
        const auto x = static_cast<unsigned char>(Upper(a[i]));
        const auto y = static_cast<unsigned char>(Upper(b[i]));
        if (x != y) return x < y ? -1 : 1;
    }
    if (a.size() == b.size()) return 0;
    return a.size() < b.size() ? -1 : 1;
}

std::size_t FindNoCase(std::string_view text, std::string_view what, std::size_t from) {
    if (from > text.size()) return std::string_view::npos;
    const auto found = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), what.begin(),
                                   what.end(), [](char x, char y) { return Upper(x) == Upper(y); });
    if (found == text.end() && !what.empty()) return std::string_view::npos;
    return static_cast<std::size_t>(found - text.begin());
}

bool EndsWithNoCase(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && EqualNoCase(text.substr(text.size() - end.size()), end);
}

std::string Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

double LeadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    if (text.starts_with('-')) return 0;
    double value = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (error == std::errc::result_out_of_range) value = std::numeric_limits<double>::infinity();
    // Words that the library takes for numbers are none here.
    if (end == text.data() || (text.front() != '.' && (text.front() < '0' || text.front() > '9'))) return 0;
    return negative ? -value : value;
}

std::uint8_t LeadingByte(std::string_view text) {
    return static_cast<std::uint8_t>(RoundedWithin(text, 0, std::numeric_limits<std::uint8_t>::max()));
}

std::int32_t LeadingLong(std::string_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(RoundedWithin(text, Limits::min(), Limits::max()));
}

char32_t ToCodePoint(char byte) {
    const auto c = static_cast<unsigned char>(byte);
    return c >= 0x80 && c <= 0x9F ? kHighControls[c - 0x80] : c;
}

bool FromCodePoint(char32_t codePoint, char& byte) {
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
        byte = static_cast<char>(codePoint);
        return true;
    }
    const auto found = std::find(kHighControls.begin(), kHighControls.end(), codePoint);
    if (found == kHighControls.end()) return false;
    byte = static_cast<char>(0x80 + (found - kHighControls.begin()));
    return true;
}

Utf8Character DecodeUtf8(std::string_view utf8) {
    if (utf8.empty()) return {};
    const auto lead = static_cast<unsigned char>(utf8[0]);
    if (lead < 0x80) return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || utf8.size() < length) return {};
    char32_t codePoint = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        if ((c & 0xC0) != 0x80) return {};
        codePoint = (codePoint << 6) | (c & 0x3F);
    }
    constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < kLeast[length] || codePoint > 0x10FFFF || surrogate) return {};
    return {codePoint, length};
}

void AppendUtf8(std::string& utf8, char32_t codePoint) {
    const auto tail = [&](int shift) { utf8 += static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F)); };
    if (codePoint < 0x80) {
        utf8 += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        utf8 += static_cast<char>(0xC0 | (codePoint >> 6));
        tail(0);
    } else if (codePoint < 0x10000) {
        utf8 += static_cast<char>(0xE0 | (codePoint >> 12));
        tail(6), tail(0);
    } else {
        utf8 += static_cast<char>(0xF0 | (codePoint >> 18));
        tail(12), tail(6), tail(0);
    }
}

std::string ToUtf8(std::string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (const char c : text)
        AppendUtf8(utf8, ToCodePoint(c));
    return utf8;
}

std::string FromUtf8(std::string_view utf8, char substitute) {
    std::string text;
    while (!utf8.empty()) {
        const Utf8Character character = DecodeUtf8(utf8);
        char byte = substitute;
        if (character.Length > 0 && !FromCodePoint(character.CodePoint, byte)) byte = substitute;
        text += byte;
        utf8.remove_prefix(std::max<std::size_t>(1, character.Length));
    }
    return text;
}

} // namespace calyvox::CodePage
