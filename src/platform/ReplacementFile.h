// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace calyvox {

class BinaryFile;

/// New contents for a file, gathered in "NAME.tmp" beside it and put in its place in one step, so that after
/// any failure the old file is whole. Where the host has no room for so long a name, the temporary has a
/// short one. A leftover of that name is overwritten; one that another program is writing is failure 70, one
/// that is a link or no plain file 75. A symbolic link stays, and what it leads to is replaced. The file need
/// not exist yet.
class ReplacementFile {
public:
    /// Bytes that CopyFrom moves at once.
    static constexpr std::int64_t kBlock = 65535;

    explicit ReplacementFile(const std::string& path);
    /// Uncommitted, the temporary is removed and the old file left as it was.
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    /// Appends. Whatever keeps the bytes from being written is failure 71.
    void Write(std::string_view bytes);
    /// Appends count bytes of the source from 1-based position on; afterBlock gets the bytes of each block.
    /// Failure 75 where the source has fewer.
    void CopyFrom(BinaryFile& source, std::int64_t position, std::int64_t count,
                  const std::function<void(std::int64_t)>& afterBlock = {});
    /// Flushes to the disk, gives it the old file's mode, owner and extended attributes, and renames it over
    /// the old file.
    void Commit();
    /// The same, and the file that held the old one open holds the new one, locked, from then on.
    void CommitInto(BinaryFile& file);
    /// The same with mode, owner and attributes of another file; failure 58 where there is one of the name.
    void CommitNew(const std::string& model);

private:
    void MakeTemporary();
    void Finish(const std::string& hostModel);
    bool IsOurs() const;
    void Publish(bool overOld);

    std::string target_; // host paths
    std::string temporary_;
    int handle_ = -1;
    std::int64_t written_ = 0;
};

} // namespace calyvox
