// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/MP3.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What a row of the file list shows of its file.
namespace calyvox::RowCells {

/// Sub-items by number; 0 is the row's text.
inline constexpr std::size_t kID3V1 = 1;
inline constexpr std::size_t kArtist = 2;
inline constexpr std::size_t kTitle = 3;
inline constexpr std::size_t kAlbum = 4;
inline constexpr std::size_t kComment = 5;
inline constexpr std::size_t kGenre = 6;
inline constexpr std::size_t kYear = 7;
inline constexpr std::size_t kTrack = 8;
inline constexpr std::size_t kMode = 9;
inline constexpr std::size_t kBitrate = 10;
inline constexpr std::size_t kFreq = 11;
inline constexpr std::size_t kChannel = 12;
inline constexpr std::size_t kID3V2 = 13;
inline constexpr std::size_t kSubdirectory = 14;
inline constexpr std::size_t kChanged = 15;
inline constexpr std::size_t kColumns = 16;

inline constexpr std::array<std::string_view, kColumns> kCaptions = {
    "Filename", "ID3V1", "Artist",  "Title", "Album",   "Comment", "Genre",        "Year",
    "Track",    "Mode",  "Bitrate", "Freq.", "Channel", "ID3V2",   "Subdirectory", "Changed"};

/// The file's name without folder and without its last four characters.
std::string NameOf(const MP3& file);
/// Sub-items 1 to 15 for the folder of the list and the view (1 shows ID3V1 fields, any other ID3V2).
std::vector<std::string> CellsOf(MP3& file, const std::string& activPath, int verShow);
/// Sub-items kArtist to kTrack of a file's ID3V1 tag, the track in decimal even where it is 0.
std::array<std::string, 7> ID3V1Cells(const MP3& file);

} // namespace calyvox::RowCells
