// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace calyvox {

/// The ID3V1 genres have the numbers 0 to 125.
inline constexpr std::uint8_t kGenreCount = 126;
inline constexpr std::uint8_t kNoGenre = 255;

/// The number of a genre's name, whole and with letter case ignored; 255 for "< undefined >" and for any
/// other text.
std::uint8_t GenreNumber(const std::string& name);

/// The name of a genre's number, "< undefined >" above 125.
std::string GenreName(std::uint8_t number);

} // namespace calyvox
