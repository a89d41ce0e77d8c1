// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/MP3File.h"

#include "platform/Failure.h"

namespace calyvox {

template <typename Opening>
bool MP3File::TryOpen(Opening opening) {
    try {
        (file_.*opening)(origFilename_.empty() ? filename_ : origFilename_);
        fileLen_ = file_.Length();
        return true;
    } catch (const Failure&) {
        file_.Close();
        return false;
    }
}

bool MP3File::OpenFile() { return TryOpen(&BinaryFile::Open); }

bool MP3File::OpenFileLocked() { return TryOpen(&BinaryFile::OpenLocked); }

} // namespace calyvox
