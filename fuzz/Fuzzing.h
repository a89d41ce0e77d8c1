// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/TempFolder.h"

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace calyvox::Fuzz {

/// Ends the process, so that the fuzzer keeps the input.
inline void Require(bool holds, const char* rule) {
    if (holds) return;
    std::fprintf(stderr, "broken rule: %s\n", rule);
    std::abort();
}

inline std::string AsText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// The process's own folder. It and all temporary files are in memory where the host has a place for that.
inline const TempFolder& Folder() {
    constexpr const char* kMemory = "/dev/shm";
    static const bool inMemory = ::access(kMemory, W_OK) == 0 && ::setenv("TMPDIR", kMemory, 1) == 0;
    static_cast<void>(inMemory);
    static const TempFolder folder;
    return folder;
}

} // namespace calyvox::Fuzz
