// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "support/Mp3Builder.h"

#include <zlib.h>

namespace calyvox::build {

namespace {

std::string Padded(std::string text, std::size_t width) {
    text.resize(width, '\0');
    return text;
}

// Four bytes of so many bits, the highest first.
std::string FourBytes(std::size_t value, int bits) {
    std::string bytes;
    for (int shift = 3 * bits; shift >= 0; shift -= bits)
        bytes += static_cast<char>((value >> shift) & ((1U << bits) - 1));
    return bytes;
}

} // namespace

std::string Syncsafe(std::size_t value) { return FourBytes(value, 7); }
std::string BigEndian(std::size_t value) { return FourBytes(value, 8); }

std::string Nuls(std::size_t count) { return std::string(count, '\0'); }

std::string Audio(std::size_t frames) {
    std::string audio;
    for (std::size_t n = 0; n < frames; ++n) {
        audio += "\xFF\xFB\x90\x64";
        for (std::size_t i = 4; i < 417; ++i)
            audio += static_cast<char>((i * 7 + n * 13) % 200);
    }
    return audio;
}

std::string Id3v1(const V1Fields& f) {
    return "TAG" + Padded(f.Title, 30) + Padded(f.Artist, 30) + Padded(f.Album, 30) + Padded(f.Year, 4) +
           Padded(f.Comment, 28) + '\0' + static_cast<char>(f.Track) + static_cast<char>(f.Genre);
}

std::string Frame(int version, const std::string& id, const std::string& body, std::uint8_t flags1,
                  std::uint8_t flags2) {
    const std::string size = version == 4 ? Syncsafe(body.size()) : BigEndian(body.size());
    return id + size + static_cast<char>(flags1) + static_cast<char>(flags2) + body;
}

std::string Text(int version, const std::string& id, const std::string& text) {
    return Frame(version, id, '\0' + text);
}

std::string Compressed(const std::string& body) {
    uLongf length = compressBound(body.size());
    std::string bytes(length, '\0');
    compress(reinterpret_cast<Bytef*>(bytes.data()), &length, reinterpret_cast<const Bytef*>(body.data()),
             body.size());
    bytes.resize(length);
    return BigEndian(body.size()) + bytes;
}

std::string Tag(int version, const std::string& body, std::uint8_t flags) {
    return TagOfSize(version, body, body.size(), flags);
}

std::string TagOfSize(int version, const std::string& body, std::size_t size, std::uint8_t flags) {
    return std::string("ID3") + static_cast<char>(version) + '\0' + static_cast<char>(flags) +
           Syncsafe(size) + body;
}

} // namespace calyvox::build
