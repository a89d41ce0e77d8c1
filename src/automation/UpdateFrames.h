// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace calyvox {

class ID3V2;

/// How a key of a data file becomes frames. It is known by its first four characters, in exact letter case.
enum class FrameKeyKind { None, Text, Genre, Web, Comment, Rating };
FrameKeyKind KindOfFrameKey(const std::string& key);

/// Parts the values of a data file: descriptor and content, user and rating, genres.
inline constexpr char kPartEnd = '\x01';

/// Adds the frames of one key and its value to a tag of the version. A frame without content is added as a
/// removal. Failure 6 for a rating that is no 8-bit number.
void AddFramesOfKey(ID3V2& frames, const std::string& key, const std::string& value, std::uint8_t version);

} // namespace calyvox
