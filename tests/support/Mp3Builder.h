// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

/// Audio files in bytes, put together from the formats' own layouts and nothing of the engine.
namespace calyvox::build {

std::string Syncsafe(std::size_t value);
std::string BigEndian(std::size_t value);
std::string Nuls(std::size_t count);

/// MPEG-1 Layer III frames of 417 bytes, 128 kbit/s, 44100 Hz, joint stereo; no two frames are alike.
std::string Audio(std::size_t frames = 4);

struct V1Fields {
    std::string Title, Artist, Album, Year, Comment;
    std::uint8_t Track = 0, Genre = 255;
};
/// The 128 bytes.
std::string Id3v1(const V1Fields& fields);

/// A frame of version 2.3 or 2.4 with its two flag bytes.
std::string Frame(int version, const std::string& id, const std::string& body, std::uint8_t flags1 = 0,
                  std::uint8_t flags2 = 0);
/// A text frame with encoding byte 0.
std::string Text(int version, const std::string& id, const std::string& text);
/// The expanded length and zlib's bytes.
std::string Compressed(const std::string& body);

/// Header and body; size is the body's own unless one is given.
std::string Tag(int version, const std::string& body, std::uint8_t flags = 0);
std::string TagOfSize(int version, const std::string& body, std::size_t size, std::uint8_t flags = 0);

} // namespace calyvox::build
