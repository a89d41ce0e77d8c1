// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace calyvox {

struct GenreRow {
    std::string Name;
    std::uint8_t Number; // of ID3V1, 255 for none
};

/// What a list of the ID3V1 genres offers: "< undefined >", then all 126 names in sorted order. The tables
/// must have been built.
const std::vector<GenreRow>& GenreRows();

/// The 0-based row of a genre number; 0 for one that is none.
std::size_t GenreRowOf(std::uint8_t number);

} // namespace calyvox
