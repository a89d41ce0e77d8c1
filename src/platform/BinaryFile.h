// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace calyvox {

/// One open file of bytes with a position. Positions are 1-based: 1 is the first byte, Length() + 1 the
/// end; the position may lie beyond it. Reads come through a window of some KiB, so that the many small
/// reads of a tag cost one call of the host. Paths are inside paths (see HostPath). Failures are thrown.
class BinaryFile {
public:
    /// What a read may claim beyond the file's end; more is failure 7 before any memory is taken.
    static constexpr std::int64_t kMostBeyondEnd = std::int64_t{64} * 1024 * 1024;
    /// Positions are 32-bit signed numbers for the callers; a longer file does not open (failure 6).
    static constexpr std::int64_t kMostLength = 0x7FFFFFFF;

    BinaryFile() = default;
    ~BinaryFile();
    BinaryFile(const BinaryFile&) = delete;
    BinaryFile& operator=(const BinaryFile&) = delete;

    /// Opens for reading, shared with everybody; the first Write turns it to read-write, failure 70 where the
    /// file is read-only. Creates a missing file. What is no plain file is failure 75.
    void Open(const std::string& path);
    /// The same, but a missing file is failure 53.
    void OpenExisting(const std::string& path);

    /// Opens for reading and writing and bars others: failure 53 without the file, 75 if it is read-only
    /// (see FileSystem::IsReadOnly), 70 if another program has it locked or, where the file system can tell,
    /// open at all. That is waited for up to half a second. What is open then bears the name: a file that
    /// was replaced while this one waited is opened anew.
    void OpenLocked(const std::string& path);

    /// Closing what is not open does nothing.
    void Close();
    bool IsOpen() const { return open_; }
    /// The host's handle number, -1 when closed.
    int Handle() const { return open_ ? handle_ : -1; }

    std::int64_t Length() const;
    std::int64_t Position() const { return position_; }
    /// Failure 5 below 1.
    void Seek(std::int64_t position);

    /// The next count bytes; the position moves on by count. Beyond the file's end they are NULs. Failure 5
    /// for a negative count.
    std::string Read(std::int64_t count);
    /// Writes at the position and moves it on. All or nothing: after a failure the file has its old bytes,
    /// as far as the host lets them be put back, and its old length.
    void Write(std::string_view bytes);
    /// Cuts the file to its first length bytes.
    void Truncate(std::int64_t length);

    /// The name was changed on the disk; the open file is still the one.
    void MovedTo(const std::string& path) { path_ = path; }
    /// Closes, and takes up an open, locked handle for the same path in its place.
    void Adopt(int handle);

    /// While one lives, Close keeps handle and lock, and opening the same path takes them up again.
    class Keep {
    public:
        explicit Keep(BinaryFile& file) : file_(file) { file_.kept_ = true; }
        ~Keep();
        Keep(const Keep&) = delete;
        Keep& operator=(const Keep&) = delete;

    private:
        BinaryFile& file_;
    };

private:
    bool TakeUpAgain(const std::string& path);
    void Begin(const std::string& path);
    bool TryOpenLocked(const std::string& path, bool& used);
    void LetGo();
    void MakeWritable();
    void ReadAt(std::int64_t offset, char* bytes, std::size_t count);
    void WriteAt(std::int64_t offset, std::string_view bytes);
    void FillWindow(std::int64_t offset);

    int handle_ = -1;
    bool open_ = false;
    bool kept_ = false;
    bool locked_ = false;
    bool writable_ = false;
    std::string path_;
    std::int64_t position_ = 1;
    std::string window_; // its first windowLength_ bytes are the file's from windowOffset_ on
    std::int64_t windowOffset_ = 0;
    std::int64_t windowLength_ = 0;
};

} // namespace calyvox
