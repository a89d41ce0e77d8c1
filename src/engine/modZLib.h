// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace calyvox {

/// What an expected length may be at most; a larger claim is failure 7 before any memory is taken.
inline constexpr std::int64_t kMostExpanded = std::int64_t{64} * 1024 * 1024;

/// The size of the output buffer for an expected length: some slack lets a wrong length still fit.
std::int64_t ZLibBound(std::int64_t expected);

/// Expands data in place. 0 on success, else zlib's own code with data as it was.
int ZLibDecompress(std::string& data, std::int64_t expected);

} // namespace calyvox
