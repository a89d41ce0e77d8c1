// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/FolderScan.h"

#include "app/ErrorList.h"
#include "app/modBase.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace calyvox {

namespace {

std::string Join(const std::string& folder, const std::string& name) {
    return folder.ends_with('\\') ? folder + name : folder + "\\" + name;
}

// What a folder holds for a scan; nothing where it cannot be listed.
struct Listing {
    std::vector<std::string> Folders;
    std::vector<std::string> Files; // that end in ".mp3"
};

// Both in the order of their upper-cased bytes.
Listing List(const std::string& folder) {
    Listing listing;
    Skip([&] {
        for (FileSystem::Entry& entry : FileSystem::ListFolder(folder))
            if (entry.Folder)
                listing.Folders.push_back(std::move(entry.Name));
            else if (CodePage::EndsWithNoCase(entry.Name, ".mp3"))
                listing.Files.push_back(std::move(entry.Name));
    });
    for (std::vector<std::string>* names : {&listing.Folders, &listing.Files})
        std::sort(names->begin(), names->end(), [](const std::string& a, const std::string& b) {
            const int order = CodePage::CompareNoCase(a, b);
            return order != 0 ? order < 0 : a < b;
        });
    return listing;
}

// False for what cannot be opened or is too short, and for a 2.3 tag that could not be cleaned. A file that
// is gone by now must not be made by opening it.
bool Read(MP3& file, const std::string& path) {
    constexpr std::uint8_t kVersion3 = 3;
    if (!FileSystem::FileExists(path)) return false;
    std::uint8_t status = 0;
    Skip([&] { status = file.ExploreMP3(path); });
    const bool unread =
        (status & MP3::kCleanedCopy) == 0 && file.TagHeader_UnSync() && file.TagHeader_Version() == kVersion3;
    return status >= MP3::kOpened && !unread;
}

} // namespace

void FolderScan::GetFolders(const std::string& path) {
    const auto identity = FileSystem::Identity(path);
    if (!identity || !entered_.emplace(identity->Device, identity->Inode).second) return;
    const Listing listing = List(path);
    for (const std::string& name : listing.Folders) {
        progress_.Yield();
        if (Progress::Cancelled()) break;
        GetFolders(Join(path, name));
    }
    AddFiles(path, listing.Files);
    progress_.SetValue(0);
}

void FolderScan::GetFiles(const std::string& path) { AddFiles(path, List(path).Files); }

void FolderScan::AddFiles(const std::string& path, const std::vector<std::string>& names) {
    progress_.SetCaption("Scanning: " + path);
    for (std::size_t i = 0; i < names.size(); ++i) {
        progress_.Yield();
        if (Progress::Cancelled()) return;
        modBase::FoundFiles.push_back(Join(path, names[i]));
        if (names.size() != 1)
            progress_.SetShare(static_cast<std::int64_t>(i), static_cast<std::int64_t>(names.size()) - 1);
    }
}

void FolderScan::ReadFoundFiles() {
    const auto last = static_cast<std::int64_t>(modBase::FoundFiles.size());
    std::int64_t number = 0;
    for (const std::string& path : modBase::FoundFiles) {
        progress_.Yield();
        if (Progress::Cancelled()) return;
        auto file = std::make_unique<MP3>();
        if (Read(*file, path))
            modBase::LoadedMP3s->Add(std::move(file), "");
        else
            TheErrors().Add(path + "   *** Could not be opened for tagging ***");
        progress_.SetShare(++number, last);
    }
}

} // namespace calyvox
