// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>

/// The bytes of the sample library's files: about two seconds of a quiet tone and, around it, the tags of
/// one kind. Written from the formats alone, without the engine, so that the engine can be held against it.
/// All texts are UTF-8 with characters of at most 16 bits.
namespace calyvox::Samples {

struct Track {
    std::size_t Index = 0;  ///< place in the library, from 0; chooses tone, channels and colours
    std::size_t Number = 0; ///< place on the album, from 1
    int Year = 0;
    std::string Artist;
    std::string Album;
    std::string Title;
};

struct Kind {
    const char* Name;
    std::string (*Bytes)(const Track& track);
    bool ReadOnly = false;
};

/// Files that any player plays and any tag reader reads.
std::span<const Kind> ValidKinds();
/// Files that cannot be read in full, or not be written.
std::span<const Kind> BrokenKinds();

} // namespace calyvox::Samples
