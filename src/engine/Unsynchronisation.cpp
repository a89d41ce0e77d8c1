// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/Unsynchronisation.h"

#include "platform/Failure.h"

namespace calyvox {

namespace {

constexpr unsigned char kSync = 0xFF;
constexpr unsigned char kLeastSyncTail = 0xE0;

} // namespace

std::string Unsynchronise(std::string_view bytes) {
    if (bytes.size() < 2) throw Failure(Failure::kInvalidCall, "Unsynchronise");
    std::string result;
    result.reserve(bytes.size() + bytes.size() / 64);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        result += bytes[i];
        if (static_cast<unsigned char>(bytes[i]) != kSync || i + 1 == bytes.size()) continue;
        const auto next = static_cast<unsigned char>(bytes[i + 1]);
        if (next == 0 || next >= kLeastSyncTail) result += '\0';
    }
    return result;
}

std::string Resynchronise(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        result += bytes[i];
        const bool sync = static_cast<unsigned char>(bytes[i]) == kSync;
        if (sync && i + 1 < bytes.size() && bytes[i + 1] == '\0') ++i;
    }
    return result;
}

} // namespace calyvox
