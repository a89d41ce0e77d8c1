// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/RowList.h"
#include "mainwindow/Commands.h"
#include "mainwindow/MainOptions.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace calyvox {

class MP3;

/// What only the window itself can do, put in by frmMain; the defaults do nothing.
struct MainWindowView {
    std::function<void(const std::string& caption)> SetCaption = [](const std::string&) {};
    /// Of the list; nested calls do not happen.
    std::function<void(bool on)> SetRepainting = [](bool) {};
    std::function<void(bool enabled)> SetTreeEnabled = [](bool) {};
    /// Reads the folders of the tree again, without any event.
    std::function<void()> RefreshTree = [] {};
    std::function<void(int panel)> PanelChanged = [](int) {};
    std::function<void()> RefreshList = [] {};
    std::function<void(std::size_t row)> EnsureVisible = [](std::size_t) {};
    /// The arrow in a column's header; no other has one.
    std::function<void(std::size_t column, bool ascending)> ShowHeaderIcon = [](std::size_t, bool) {};
    /// Rows that fit on one page, not more than there are.
    std::function<std::size_t()> ListViewVisibleRows = [] { return std::size_t{1}; };
    /// The columns as they are shown, from the left.
    std::function<std::vector<std::size_t>()> ColumnOrder = [] {
        return std::vector<std::size_t>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    };
};

/// The main window without its controls: the rows, what is done to all of them, and what other forms may ask
/// of it. A row's tag is the 1-based position of its file in modBase::LoadedMP3s, the only tie between the
/// two.
class MainWindow {
public:
    MainWindow();

    RowList FileList;
    MainOptions Options;
    CommandRunner Commands;
    MainWindowView View;
    /// While it is set, changes of folder in the tree are refused.
    bool TreeBusy = false;

    MP3& FileOf(std::size_t row) const;
    std::size_t ListViewSelectedCount() const { return FileList.SelectedCount(); }
    std::size_t CountChanged() const;

    /// Reads ActivPath anew. All objects go, and unsaved changes with them.
    void FileListRefresh();
    /// Draws all rows from LoadedMP3s. An empty path leaves the list at the top; a file's full path brings
    /// its row to the top of the page.
    void FillListView(const std::string& selectFile);

    /// Writes every changed file. One that fails keeps its mark.
    void submnuSave();
    /// Asks about unsaved changes, if there are any, and saves on Yes; false stands for Cancel. An answer of
    /// Yes or Cancel that is left from an earlier box counts as well. With forget, Yes and Cancel are
    /// forgotten afterwards.
    bool SaveQuestion(bool forget);
    void submnuRefresh();
    /// Whether a row is selected; a box says so if none is.
    bool CheckSelection();

    /// Another folder is wanted in the tree; false refuses it.
    bool BeforeFolderChange();
    void FolderChanged(const std::string& path);
    /// A click on a column's header: sorts by it, or turns the order round.
    void ColumnClick(std::size_t column);
    /// Brings the selected rows to the top.
    void submnuGroup_Click();
    /// The other fields of ID3V1 and ID3V2 in the list.
    void SwitchView();
    /// "Current view: ID3V1" or "Current view: ID3V2".
    static std::string ViewCaption();
    /// The main window gets its turn back from a dialog.
    void Activated();
    void submnuSubDir();
    static void submnuAbout();

    /// The status bar's panels, numbered from 1.
    static constexpr int kPanels = 8;
    const std::string& Panel(int panel) const { return panels_.at(static_cast<std::size_t>(panel - 1)); }
    void SetPanel(int panel, const std::string& text);
    void ShowSelectedCount();
    /// As panel 2 says it.
    std::size_t ShownSelectedCount() const;
    /// Panel 4; empty without a current row.
    void ShowNameLength();
    void ShowFolder();

private:
    void AddRows(class Progress& progress, bool paints);
    void BringToTop(const std::string& file);

    std::array<std::string, kPanels> panels_;
};

/// The one of the process.
MainWindow& TheMainWindow();

} // namespace calyvox
