// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/Passes.h"

#include "app/Progress.h"
#include "app/modBase.h"
#include "engine/MP3.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/NeedleIndex.h"
#include "mainwindow/Renaming.h"
#include "mainwindow/RowCells.h"
#include "mainwindow/Unpainted.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace calyvox::Passes {

namespace {

// What the two passes that remove a tag do not share.
struct RemovedTag {
    const char* Version;
    std::size_t Column; // that says whether the file has it
    const char* PresentText;
    bool InView;
    void (MP3::*Remove)();
};

bool IsSure(const std::string& question) {
    modBase::MsgResult =
        modBase::ShowMessage(question, MsgBox::kOkCancel | MsgBox::kQuestion, "Are you sure ...");
    return modBase::MsgResult != MsgBox::kCancel;
}

// Calls the action for each selected row until the user cancels.
void ForSelected(MainWindow& window, Progress& progress, const std::function<void(std::size_t row)>& action) {
    const auto total = static_cast<std::int64_t>(window.ShownSelectedCount());
    std::int64_t done = 0;
    for (std::size_t row = 0; row < window.FileList.Count(); ++row) {
        progress.Yield();
        if (Progress::Cancelled()) return;
        if (!window.FileList.IsSelected(row)) continue;
        ++done;
        action(row);
        progress.SetShare(done, total);
    }
}

void RemoveFrom(MainWindow& window, std::size_t row, const RemovedTag& tag) {
    RowList& list = window.FileList;
    if (!RowList::Cell(list.At(row), tag.Column).starts_with(tag.PresentText)) return;
    list.SetCell(row, tag.Column, "No");
    MP3& file = window.FileOf(row);
    (file.*tag.Remove)();
    for (std::size_t column = RowCells::kArtist; tag.InView && column <= RowCells::kTrack; ++column)
        list.SetCell(row, column, "");
    list.SetCell(row, RowCells::kChanged, "Y");
    file.SetChanged(true);
}

void Remove(MainWindow& window, const RemovedTag& tag) {
    if (!IsSure(std::string("Sure you want to remove the ID3-Tag Version ") + tag.Version +
                "\rform all selected files?"))
        return;
    const Unpainted unpainted(window);
    Progress progress;
    ForSelected(window, progress, [&](std::size_t row) { RemoveFrom(window, row, tag); });
    progress.SetValue(0);
}

// The file to show after the selected ones have gone: the first below the current one that stays, or else
// the first of all that stays; an empty path where none does.
std::string FileToShow(const MainWindow& window) {
    const RowList& list = window.FileList;
    const std::size_t current = list.Current() == RowList::kNone ? 0 : list.Current();
    const auto pathOf = [&](std::size_t row) { return window.FileOf(row).MP3File_FileName(); };
    for (std::size_t row = current; row < list.Count(); ++row)
        if (!list.IsSelected(row)) return pathOf(row);
    for (std::size_t row = 0; row < list.Count() && row <= current; ++row)
        if (!list.IsSelected(row)) return pathOf(row);
    return {};
}

void DeleteOne(const MP3& file) {
    const std::string& path = Renaming::NameOnDisk(file);
    try {
        FileSystem::DeleteFile(path);
    } catch (const Failure&) {
        modBase::MsgResult = modBase::ShowMessage("Error while deleting file! Perhaps the file\r" + path +
                                                      "\ris write protected or used by another application.",
                                                  MsgBox::kExclamation, "Access denied!");
    }
}

void DeleteSelected(MainWindow& window) {
    std::vector<std::string> paths;
    for (const MP3& file : *modBase::LoadedMP3s)
        paths.push_back(file.MP3File_FileName());
    NeedleIndex index(std::move(paths));
    std::vector<const MP3*> gone;
    const Unpainted unpainted(window);
    Progress progress;
    ForSelected(window, progress, [&](std::size_t row) {
        const std::size_t place = index.Take("\\" + window.FileList.At(row).Text + ".mp3");
        if (place == NeedleIndex::kNone) return;
        const MP3& file = modBase::LoadedMP3s->Item(static_cast<std::int64_t>(place) + 1);
        DeleteOne(file);
        gone.push_back(&file);
    });
    progress.SetValue(0);
    std::sort(gone.begin(), gone.end());
    modBase::LoadedMP3s->RemoveIf(
        [&](const MP3& file) { return std::binary_search(gone.begin(), gone.end(), &file); });
}

} // namespace

void Save(MainWindow& window) {
    const std::size_t changed = window.CountChanged();
    if (changed == 0) return;
    const Unpainted unpainted(window);
    Progress progress;
    progress.SetMax(static_cast<std::int64_t>(changed));
    std::int64_t done = 0;
    for (std::size_t row = 0; row < window.FileList.Count(); ++row) {
        progress.Yield();
        if (Progress::Cancelled()) break;
        MP3& file = window.FileOf(row);
        if (!file.Changed()) continue;
        if (file.WriteTags(true, true)) {
            window.FileList.SetCell(row, RowCells::kChanged, "");
            file.SetChanged(false);
            file.ID3V2().SetChanged(false);
        }
        progress.SetValue(++done);
    }
    progress.SetValue(0);
}

void RemoveID3V1(MainWindow& window) {
    Remove(window, {"1", RowCells::kID3V1, "Yes", modBase::VerShow == 1, &MP3::RemoveID3V1});
}

void RemoveID3V2(MainWindow& window) {
    Remove(window, {"2", RowCells::kID3V2, "Ver", modBase::VerShow != 1, &MP3::RemoveID3V2});
}

// The rows' tags are those of the files before, until the list is drawn anew.
void MenuDelete(MainWindow& window) {
    if (!IsSure("Sure you want to delete all selected files?\r"
                "They will NOT appear in the recycle bin after that!"))
        return;
    const std::string next = FileToShow(window);
    DeleteSelected(window);
    window.FillListView(next);
}

} // namespace calyvox::Passes
