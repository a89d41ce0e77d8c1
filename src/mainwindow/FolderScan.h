// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/Progress.h"

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace calyvox {

/// Gathers the paths of all ".mp3" files (letter case ignored) into modBase::FoundFiles and reads the files
/// into modBase::LoadedMP3s. Stops where the user cancels; what was found or read by then stays. Failures
/// are never thrown: folders that cannot be listed are passed over, files that cannot be read get a line in
/// TheErrors().
class FolderScan {
public:
    explicit FolderScan(Progress& progress) : progress_(progress) {}

    /// The folder and all below it, sub-folders first. A folder that is met again, through a link, is not
    /// entered again.
    void GetFolders(const std::string& path);
    /// The folder alone.
    void GetFiles(const std::string& path);
    void ReadFoundFiles();

private:
    void AddFiles(const std::string& path, const std::vector<std::string>& names);

    Progress& progress_;
    std::set<std::pair<std::uint64_t, std::uint64_t>> entered_; // device and inode
};

} // namespace calyvox
