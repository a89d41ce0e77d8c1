// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/Renaming.h"

#include "app/Services.h"
#include "app/modBase.h"
#include "engine/MP3.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/RowCells.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"
#include "platform/HostPath.h"

namespace calyvox::Renaming {

namespace {

void Tell(const std::string& text, int icon, const std::string& title) {
    modBase::MsgResult = modBase::ShowMessage(text, icon, title);
}

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('\\') + 1); }

// Each file is compared within its own folder, so a file of that name in any listed folder is in the way.
// From the first one on the name is empty, and the walk goes on.
void EmptyIfTaken(std::int64_t position, std::string& name) {
    std::int64_t number = 0;
    for (const MP3& file : *modBase::LoadedMP3s) {
        const std::string& path = file.MP3File_FileName();
        const std::string wanted = FolderOf(path) + name + ".mp3";
        if (++number == position || !CodePage::EqualNoCase(wanted, path)) continue;
        Tell("File: " + wanted + "\rcould not be renamed. Filename is already used.", MsgBox::kOkOnly,
             "Could not rename");
        name.clear();
    }
}

void NoteName(MainWindow& window, std::size_t row, const std::string& name) {
    MP3& file = window.FileOf(row);
    const std::string present = file.MP3File_FileName();
    if (file.MP3File_OrigFileName().empty()) file.SetMP3File_OrigFileName(present);
    file.SetMP3File_FileName(FolderOf(present) + name + ".mp3");
    window.FileList.SetCell(row, RowCells::kChanged, "Y");
    file.SetChanged(true);
}

void TellOfCleanedName() {
    Tell("There were charcters [\\/:*?<>|] within the name,\r"
         "which were not allowed to be used in filenames,\r"
         "or the filename is incorrect.\r"
         "Wrong characters were replaced by '_'.",
         MsgBox::kExclamation, "Wrong character");
}

bool HasForbidden(const std::string& name) {
    bool changed = false;
    static_cast<void>(HostPath::Clean(name, changed));
    return changed;
}

// Tries the new name, goes back to the old one, and takes the new one for good. If there is no way back,
// the new name stands.
bool RenamedOnDisk(const std::string& from, const std::string& to) {
    try {
        FileSystem::Rename(from, to);
    } catch (const Failure&) {
        return false;
    }
    Skip([&] {
        FileSystem::Rename(to, from);
        FileSystem::Rename(from, to);
    });
    return FileSystem::FolderExists(to);
}

std::string Moved(const std::string& path, const std::string& from, const std::string& to) {
    const bool below = path == from || path.starts_with(from + "\\");
    return below ? to + path.substr(from.size()) : path;
}

// Unsaved changes stay, as nothing is read anew.
void MovePaths(MainWindow& window, const std::string& from, const std::string& to) {
    for (MP3& file : *modBase::LoadedMP3s) {
        file.SetMP3File_FileName(Moved(file.MP3File_FileName(), from, to));
        file.SetMP3File_OrigFileName(Moved(file.MP3File_OrigFileName(), from, to));
    }
    modBase::ActivPath = Moved(modBase::ActivPath, from, to);
    window.ShowFolder();
}

} // namespace

const std::string& NameOnDisk(const MP3& file) {
    return file.MP3File_OrigFileName().empty() ? file.MP3File_FileName() : file.MP3File_OrigFileName();
}

bool AfterLabelEdit(MainWindow& window, std::size_t row, std::string name) {
    modBase::NameWasCleaned = false;
    std::string cleaned;
    if (!name.empty()) {
        cleaned = modBase::CleanFileName(name);
        EmptyIfTaken(window.FileList.At(row).Tag, cleaned);
        if (!cleaned.empty()) NoteName(window, row, cleaned);
    }
    const bool refused = !name.empty() && cleaned.empty();
    if (!refused) {
        window.SetPanel(4, "Length of filename: " + std::to_string(HostPath::Length(name)) + " char.");
        if (modBase::NameWasCleaned) name = cleaned;
        if (!name.empty()) window.FileList.SetCell(row, 0, name);
    }
    if (modBase::NameWasCleaned) TellOfCleanedName();
    return window.Options.QuickEdit && row + 1 < window.FileList.Count();
}

bool AfterFolderRename(MainWindow& window, const std::string& folder, const std::string& name) {
    const std::string wanted = CodePage::Trim(name);
    if (HasForbidden(wanted)) {
        Tell("There is a charcter [\\/:*?<>|] within the name,\r"
             "which is not allowed to be used in foldernames.",
             MsgBox::kCritical, "Wrong character");
        return false;
    }
    if (folder.empty() || folder.ends_with('\\')) return false;
    const std::string target = FolderOf(folder) + wanted;
    if (target == folder) return false;
    if (!wanted.empty() && RenamedOnDisk(folder, target)) {
        MovePaths(window, folder, target);
        return true;
    }
    Tell("Folder could not be renamed. Please ensure that it is not in use,\r"
         "e. g. by a MP3-File from this folder that is played,\r"
         "or an other folder of the same name exists.",
         MsgBox::kOkOnly, "Error during renaming");
    return false;
}

} // namespace calyvox::Renaming
