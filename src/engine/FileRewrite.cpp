// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/FileRewrite.h"

#include "engine/EngineHost.h"
#include "engine/MP3File.h"
#include "platform/ReplacementFile.h"

namespace calyvox {

void RewriteFile(MP3File& file, std::string_view front, std::int64_t offset, std::int64_t count,
                 bool showProgress) {
    const std::int64_t max = file.FileLen();
    if (showProgress) Host().WriteBarMax(max);
    std::int64_t copied = 0;
    ReplacementFile replacement(file.Filename());
    replacement.Write(front);
    replacement.CopyFrom(file.File(), offset + 1, count, [&](std::int64_t bytes) {
        copied += bytes;
        if (showProgress) Host().WriteBarValue(copied < count ? copied : max);
    });
    replacement.CommitInto(file.File());
}

} // namespace calyvox
