// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace calyvox {

class MP3File;

/// Cuts bytes off the start and the end of a closed file: the end alone in place, the start by a rewrite.
/// False after a failure, with the file as it was.
bool CutFile(MP3File& file, std::int64_t headBytes, std::int64_t tailBytes, bool showProgress);

} // namespace calyvox
