// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/modZLib.h"

#include "platform/Failure.h"

#include <zlib.h>

#include <algorithm>
#include <utility>

namespace calyvox {

std::int64_t ZLibBound(std::int64_t expected) { return expected + expected / 32768 * 5 + 11 + 16; }

int ZLibDecompress(std::string& data, std::int64_t expected) {
    if (expected > kMostExpanded) throw Failure(Failure::kOutOfMemory, "ZLibDecompress");
    // Deflate never expands more than 1032 times, so that a claim beyond it needs no memory.
    const auto most = static_cast<std::int64_t>(data.size()) * 1032 + 1024;
    std::string output(static_cast<std::size_t>(std::min(ZLibBound(expected), most)), '\0');
    uLongf length = output.size();
    const int code = uncompress(reinterpret_cast<Bytef*>(output.data()), &length,
                                reinterpret_cast<const Bytef*>(data.data()), data.size());
    if (code != Z_OK) return code;
    output.resize(length);
    data = std::move(output);
    return Z_OK;
}

} // namespace calyvox
