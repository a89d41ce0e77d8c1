// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/CutFile.h"

#include "engine/EngineHost.h"
#include "engine/FileRewrite.h"
#include "engine/MP3File.h"
#include "platform/Failure.h"

namespace calyvox {

bool CutFile(MP3File& file, std::int64_t headBytes, std::int64_t tailBytes, bool showProgress) {
    try {
        if (!file.OpenFileLocked()) return false;
        const std::int64_t kept = file.FileLen() - headBytes - tailBytes;
        if (kept < 0) throw Failure(Failure::kInvalidCall, "CutFile");
        if (headBytes != 0) {
            RewriteFile(file, {}, headBytes, kept, showProgress);
        } else {
            if (showProgress) Host().WriteBarMax(file.FileLen());
            file.File().Truncate(kept);
            if (showProgress) Host().WriteBarValue(file.FileLen());
        }
        file.CloseFile();
        if (showProgress) Host().WriteBarValue(0);
        return true;
    } catch (const Failure&) {
        file.CloseFile();
        return false;
    }
}

} // namespace calyvox
