// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace calyvox {

/// The lookup tables of the formats, empty until BuildTables has run.
struct EngineTables {
    /// Kilobits per second by bit-rate index (0 to 15) and column: bit 0 of the version code times 4 plus the
    /// layer code. 0 where the format has no rate.
    std::array<std::array<std::int16_t, 8>, 16> BitRateTable{};
    /// Hertz by version code (0 to 3) and sample-rate index (0 to 3).
    std::array<std::array<std::int32_t, 4>, 4> FrequencyTable{};
    /// The ID3V1 genres 0 to 125, and an empty name at 126.
    std::vector<std::string> GenreNames;
    /// Every known frame ID, each followed by a NUL.
    std::string FrameIDList;
};

const EngineTables& Tables();

/// Builds them all; done once at each start of the program.
void BuildTables();

} // namespace calyvox
