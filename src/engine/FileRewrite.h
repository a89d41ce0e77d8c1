// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace calyvox {

class MP3File;

/// Replaces an open, locked file by a front and count of its own bytes from 0-based offset on, in one atomic
/// step; the file stays open and locked. Failures are thrown with the file as it was and no temporary left.
void RewriteFile(MP3File& file, std::string_view front, std::int64_t offset, std::int64_t count,
                 bool showProgress);

} // namespace calyvox
