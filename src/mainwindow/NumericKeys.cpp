// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/NumericKeys.h"

#include "platform/CodePage.h"

#include <algorithm>
#include <optional>

namespace calyvox {

namespace {

constexpr std::size_t kPlaces = 30;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Thirty places on each side of the point; a longer number keeps its places before it.
std::string Format(const std::string& digits) {
    const std::size_t point = std::min(digits.find('.'), digits.size());
    std::string whole = digits.substr(0, point);
    std::string fraction = point < digits.size() ? digits.substr(point + 1) : std::string();
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    if (whole.size() < kPlaces) whole.insert(0, kPlaces - whole.size(), '0');
    fraction.resize(kPlaces, '0');
    return whole + "." + fraction;
}

std::string Complement(std::string text) {
    for (char& c : text)
        if (IsDigit(c)) c = static_cast<char>('0' + '9' - c);
    return text;
}

std::optional<std::string> KeyOfNumber(const std::string& text) {
    std::string digits = CodePage::Trim(text);
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+')) digits.erase(0, 1);
    const bool plain =
        std::all_of(digits.begin(), digits.end(), [](char c) { return IsDigit(c) || c == '.'; });
    if (!plain || std::count(digits.begin(), digits.end(), '.') > 1 ||
        std::none_of(digits.begin(), digits.end(), IsDigit))
        return std::nullopt;
    const std::string key = Format(digits);
    const bool zero = key.find_first_of("123456789") == std::string::npos;
    return negative && !zero ? "&" + Complement(key) : key;
}

} // namespace

std::string NumericSortKey(const std::string& cell) {
    if (const auto key = KeyOfNumber(cell)) return *key;
    const std::size_t slash = cell.find('/');
    if (slash == std::string::npos) return {};
    return KeyOfNumber(cell.substr(0, slash)).value_or(CodePage::Upper(cell));
}

} // namespace calyvox
