// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/Progress.h"
#include "platform/FileSystem.h"

#include <string>
#include <vector>

namespace calyvox {

/// Gathers the paths of all ".mp3" files (letter case ignored) into modBase::FoundFiles and reads the files
/// into modBase::LoadedMP3s. Stops where the user cancels; what was found or read by then stays. Failures
/// are never thrown: folders that cannot be listed are passed over, files that cannot be read get a line in
/// TheErrors().
class FolderScan {
public:
    explicit FolderScan(Progress& progress) : progress_(progress) {}

    /// The folder and all below it, sub-folders first. A folder that is met again inside itself, through a
    /// link, is not entered again.
    void GetFolders(const std::string& path);
    /// The folder alone.
    void GetFiles(const std::string& path);
    void ReadFoundFiles();

private:
    bool IsOpenAlready(const FileSystem::FileIdentity& folder) const;

    Progress& progress_;
    std::vector<FileSystem::FileIdentity> open_; // the folders from the first to the one being walked
};

} // namespace calyvox
