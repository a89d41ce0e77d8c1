// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/BinaryFile.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace calyvox {

/// The engine's handle on an audio file: two names, a position, and the length found at opening. Positions
/// are 1-based. The file is opened, used and closed again by every operation.
///
/// OrigFilename is empty except while a rename is pending (it is the name on disk, Filename the wanted one)
/// and while a cleaned copy of an unsynchronised tag is read (Filename is the copy, OrigFilename the file).
class MP3File {
public:
    /// Shorter files are neither read nor written, in bytes.
    static constexpr std::int64_t kLeastLength = 401;

    /// Opens OrigFilename, or Filename where that is empty, for shared reading and writing; a missing file is
    /// created. On any failure the result is false and nothing is open.
    bool OpenFile();
    /// The same exclusively; false also for a missing, a read-only and a used file.
    bool OpenFileLocked();
    /// Changes none of the names; closing a closed file does nothing.
    void CloseFile() { file_.Close(); }

    std::int64_t FilePos() const { return file_.Position(); }
    void SetFilePos(std::int64_t position) { file_.Seek(position); }
    int FileNumber() const { return file_.Handle(); }
    const std::string& Filename() const { return filename_; }
    void SetFilename(const std::string& name) { filename_ = name; }
    const std::string& OrigFilename() const { return origFilename_; }
    void SetOrigFilename(const std::string& name) { origFilename_ = name; }
    /// The length at the last opening, in bytes; writes do not change it.
    std::int64_t FileLen() const { return fileLen_; }

    /// The next count bytes, NULs beyond the file's end (see BinaryFile). Failures are thrown.
    std::string Read(std::int64_t count) { return file_.Read(count); }
    void Write(std::string_view bytes) { file_.Write(bytes); }
    BinaryFile& File() { return file_; }

private:
    template <typename Opening>
    bool TryOpen(Opening opening);

    std::int64_t fileLen_ = 0;
    std::string filename_;
    std::string origFilename_;
    BinaryFile file_;
};

} // namespace calyvox
