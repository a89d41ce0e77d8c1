// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Failure.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Taking bytes apart: numbers of four bytes, most significant first, as tag and frame headers have them, and
/// the parts of a frame's body.
namespace calyvox::Bytes {

/// The sum of four bytes by 7-bit weights. High bits are not masked, they simply add to it.
inline std::int64_t FromSyncsafe(std::string_view bytes) {
    std::int64_t value = 0;
    for (const char c : bytes.substr(0, 4))
        value = value * 128 + static_cast<unsigned char>(c);
    return value;
}

inline std::int64_t FromBigEndian(std::string_view bytes) {
    std::int64_t value = 0;
    for (const char c : bytes.substr(0, 4))
        value = value * 256 + static_cast<unsigned char>(c);
    return value;
}

inline std::string ToSyncsafe(std::int64_t value) {
    std::string bytes(4, '\0');
    for (int i = 3; i >= 0; --i, value /= 128)
        bytes[i] = static_cast<char>(i == 0 ? value : value % 128);
    return bytes;
}

inline std::string ToBigEndian(std::int64_t value) {
    std::string bytes(4, '\0');
    for (int i = 3; i >= 0; --i, value /= 256)
        bytes[i] = static_cast<char>(value % 256);
    return bytes;
}

/// The first bytes of a text, taken off it. Failure 5 where it is shorter.
inline std::string TakeFront(std::string& bytes, std::size_t count) {
    if (bytes.size() < count) throw Failure(Failure::kInvalidCall, "Bytes");
    std::string front = bytes.substr(0, count);
    bytes.erase(0, count);
    return front;
}

/// What stands before the first NUL, taken off with it. Failure 5 without one.
inline std::string TakeToNul(std::string& bytes) {
    const std::size_t nul = bytes.find('\0');
    if (nul == std::string::npos) throw Failure(Failure::kInvalidCall, "Bytes");
    std::string front = TakeFront(bytes, nul);
    bytes.erase(0, 1);
    return front;
}

} // namespace calyvox::Bytes
