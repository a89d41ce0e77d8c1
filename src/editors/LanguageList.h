// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace calyvox {

inline constexpr std::size_t kLanguageCount = 422;
inline constexpr std::size_t kLanguageCode = 3; // characters of a row that are its code
inline constexpr std::size_t kNoLanguage = static_cast<std::size_t>(-1);

/// The languages of comments, "ger - German". The setting Language is a position in this list.
const std::array<std::string_view, kLanguageCount>& LanguageRows();

/// The code of a row, empty beyond the last one.
std::string LanguageCode(std::size_t row);
/// The first row with the code, letter case ignored; kNoLanguage without one.
std::size_t LanguageRowOf(std::string_view code);
/// The same for a code in small letters; a code with any other finds no row.
std::size_t LanguageRowOfExact(std::string_view code);

/// The row for new comments, from the settings; English where the setting is no row.
std::size_t DefaultLanguageRow();
/// A store that cannot be written is passed over.
void WriteDefaultLanguageRow(std::size_t row);

} // namespace calyvox
