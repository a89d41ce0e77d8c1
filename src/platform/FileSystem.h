// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Files and folders by inside paths (see HostPath). Failures are thrown; the predicates never fail.
namespace calyvox::FileSystem {

struct Entry {
    std::string Name; // inside name
    bool Folder = false;
};

/// Tells one state of one file from every other.
struct FileIdentity {
    std::uint64_t Device = 0;
    std::uint64_t Inode = 0;
    std::int64_t Size = 0;
    std::int64_t ModifiedNs = 0;
    bool operator==(const FileIdentity&) const = default;
};

bool FileExists(const std::string& path);
/// The empty path is the host's root.
bool FolderExists(const std::string& path);
/// Of a folder too, the empty path being the host's root; nothing where there is neither.
std::optional<FileIdentity> Identity(const std::string& path);

/// Whether the file may not be written: its owner has no write permission, or the host refuses this user.
/// Being root makes no difference. Failure 53 without the file.
bool IsReadOnly(const std::string& path);

/// All entries but "." and "..", hidden ones too, in the host's order; links count as what they lead to.
/// Failure 76 without the folder, 70 if it may not be read.
std::vector<Entry> ListFolder(const std::string& path);

/// Failure 58 where something of that name exists, 76 where the parent does not.
void CreateFolder(const std::string& path);
void DeleteFile(const std::string& path);

/// Renames within a file system and never overwrites: failure 58 where "to" is another file, 76 where its
/// folder is missing. A file renamed to itself, however its folder is spelt, is done already; a name that
/// differs in case alone works on hosts that ignore case too.
void Rename(const std::string& from, const std::string& to);
/// The same also across file systems: copied, flushed, its size compared, then deleted.
void Move(const std::string& from, const std::string& to);
/// Failure 58 where "to" exists. Mode, owner, extended attributes and the time of modification go along.
void Copy(const std::string& from, const std::string& to);

std::string CurrentFolder();
/// The running program's own file, as an inside path.
std::string ProgramFile();

/// A new empty file, in a folder that only this user may enter and that goes away with the process. The
/// name begins with the prefix and ends in ".tmp".
std::string CreateTempFile(const std::string& prefix);

} // namespace calyvox::FileSystem
