// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/MainWindow.h"

#include "app/ErrorList.h"
#include "app/Progress.h"
#include "app/Services.h"
#include "app/Version.h"
#include "app/modBase.h"
#include "app/modReport.h"
#include "engine/MP3.h"
#include "mainwindow/FolderScan.h"
#include "mainwindow/NumericKeys.h"
#include "mainwindow/Passes.h"
#include "mainwindow/RowCells.h"
#include "mainwindow/Unpainted.h"
#include "platform/CodePage.h"
#include "platform/HostPath.h"

#include <algorithm>
#include <vector>

namespace calyvox {

namespace {

constexpr std::int64_t kFilesForWindow = 300;
constexpr std::int64_t kFilesForBar = 100;
constexpr std::string_view kSelectedWords = "Selected MP3s: ";

// Does something however its block ends.
class AtEnd {
public:
    explicit AtEnd(std::function<void()> action) : action_(std::move(action)) {}
    ~AtEnd() { action_(); }
    AtEnd(const AtEnd&) = delete;
    AtEnd& operator=(const AtEnd&) = delete;

private:
    std::function<void()> action_;
};

} // namespace

MainWindow& TheMainWindow() {
    static MainWindow window;
    return window;
}

MainWindow::MainWindow() {
    Commands.CheckSelection = [this] { return CheckSelection(); };
}

MP3& MainWindow::FileOf(std::size_t row) const { return modBase::LoadedMP3s->Item(FileList.At(row).Tag); }

void MainWindow::FileListRefresh() {
    {
        const Unpainted unpainted(*this);
        Progress progress;
        modBase::CancelRun = false;
        View.SetCaption(ViewCaption() + " - Calyvox");
        FileList.Clear();
        progress.Yield();
        modBase::LoadedMP3s = std::make_unique<MP3s>();
        modBase::FoundFiles.clear();
        if (TheErrors().Message().empty())
            TheErrors().SetMessage("The following errors accurried during reading tag information.");
        ReportLine("frmmain.filelistrefresh - Gathering files");
        FolderScan scan(progress);
        if (Options.SubDir)
            scan.GetFolders(modBase::ActivPath);
        else
            scan.GetFiles(modBase::ActivPath);
        progress.SetValue(0);
        progress.SetCaption("Gathering Tag Information");
        scan.ReadFoundFiles();
        progress.SetValue(0);
    }
    TheErrors().Show();
    ReportLine("frmmain.filelistrefresh - Gathering files finished");
    FillListView("");
}

void MainWindow::FillListView(const std::string& selectFile) {
    FileList.Clear();
    {
        const AtEnd treeAgain([this] { View.SetTreeEnabled(true); });
        View.SetTreeEnabled(false);
        const std::int64_t count = modBase::LoadedMP3s->Count();
        const Unpainted unpainted(*this);
        const RowList::Hold hold(FileList);
        {
            const bool shown = count > kFilesForWindow;
            Progress progress(shown ? Progress::Window::Shown : Progress::Window::None);
            progress.SetCaption("Updating List");
            progress.SetCanCancel(false);
            AddRows(progress, count > kFilesForBar);
        }
        FileList.Sort();
        FileList.SelectAll(RowList::Flag::Off); // clicks on half a list
        if (count > 0) FileList.SetCurrent(0);
    }
    SetPanel(1, "MP3s counted: " + std::to_string(FileList.Count()));
    SetPanel(2, std::string(kSelectedWords) + "0");
    View.RefreshList();
    if (!selectFile.empty()) BringToTop(selectFile);
}

void MainWindow::AddRows(Progress& progress, bool paints) {
    constexpr std::int64_t kYieldEach = 10;
    constexpr std::int64_t kPaintEach = 64;
    const std::int64_t count = modBase::LoadedMP3s->Count();
    std::int64_t number = 0;
    for (MP3& file : *modBase::LoadedMP3s) {
        if (++number % kYieldEach == 0) progress.Yield();
        RowList::Row& row = FileList.Add(RowCells::NameOf(file));
        row.Tag = number;
        row.SubItems = RowCells::CellsOf(file, modBase::ActivPath, modBase::VerShow);
        if (paints && number % kPaintEach == 0) progress.SetShare(number, count);
    }
    if (paints) progress.SetValue(0);
}

void MainWindow::BringToTop(const std::string& file) {
    for (std::size_t row = 0; row < FileList.Count(); ++row) {
        if (FileOf(row).MP3File_FileName() != file) continue;
        FileList.SetCurrent(row);
        View.EnsureVisible(row);
        View.EnsureVisible(
            std::min(row + std::max<std::size_t>(View.ListViewVisibleRows(), 1) - 1, FileList.Count() - 1));
        return;
    }
}

std::size_t MainWindow::CountChanged() const {
    std::size_t changed = 0;
    for (std::size_t row = 0; row < FileList.Count(); ++row)
        changed += FileOf(row).Changed() ? 1 : 0;
    return changed;
}

void MainWindow::submnuSave() { Passes::Save(*this); }

bool MainWindow::SaveQuestion(bool forget) {
    if (CountChanged() > 0)
        modBase::MsgResult =
            modBase::ShowMessage("Changes have not been saved yet!\r\nDo you want to save now?",
                                 MsgBox::kYesNoCancel | MsgBox::kQuestion, "Save changes?");
    const std::int16_t answer = modBase::MsgResult;
    if (answer == MsgBox::kYes) submnuSave();
    if (forget && (answer == MsgBox::kYes || answer == MsgBox::kCancel)) modBase::MsgResult = 0;
    return answer != MsgBox::kCancel;
}

// Cancel in the question does not keep the list: the refresh goes on and the changes are lost.
void MainWindow::submnuRefresh() {
    TheErrors().Clear();
    SaveQuestion(true);
    {
        const AtEnd idle([this] { TreeBusy = false; });
        TreeBusy = true;
        View.RefreshTree();
    }
    FileListRefresh();
}

bool MainWindow::CheckSelection() {
    ShowSelectedCount();
    if (ShownSelectedCount() != 0) return true;
    modBase::MsgResult =
        modBase::ShowMessage("Please select files to tag!", MsgBox::kExclamation, "Select files");
    return false;
}

bool MainWindow::BeforeFolderChange() { return !TreeBusy && SaveQuestion(true); }

void MainWindow::FolderChanged(const std::string& path) {
    modBase::ActivPath = path.ends_with('\\') ? path.substr(0, path.size() - 1) : path;
    FileListRefresh();
    ShowFolder();
    SetPanel(4, "");
}

std::string MainWindow::ViewCaption() {
    return modBase::VerShow == 1 ? "Current view: ID3V1" : "Current view: ID3V2";
}

void MainWindow::SwitchView() {
    modBase::VerShow = modBase::VerShow == 1 ? 2 : 1;
    View.SetCaption(ViewCaption() + " - Calyvox");
    FillListView("");
}

void MainWindow::ColumnClick(std::size_t column) {
    FileList.SetSort(column, column != FileList.SortColumn() || !FileList.Ascending());
    if (column == RowCells::kTrack) {
        std::vector<std::string> keys;
        for (std::size_t row = 0; row < FileList.Count(); ++row)
            keys.push_back(NumericSortKey(RowList::Cell(FileList.At(row), column)));
        FileList.SortByKeys(keys);
    } else {
        FileList.Sort();
    }
    View.ShowHeaderIcon(column, FileList.Ascending());
}

void MainWindow::submnuGroup_Click() {
    FileList.Group();
    View.EnsureVisible(0);
}

// The arrow in the header stays as it was.
void MainWindow::Activated() {
    View.RefreshList();
    FileList.SetSort(FileList.SortColumn(), !FileList.Ascending());
}

void MainWindow::submnuSubDir() {
    Options.SubDir = !Options.SubDir;
    SetPanel(5, Options.SubDir ? "Subdir.: Yes" : "Subdir.: No");
}

void MainWindow::submnuAbout() {
    modBase::MsgResult =
        modBase::ShowMessage(std::string("Calyvox - Version: ") + kVersion + "\r" + kHomePage + "\r" + kOwner,
                             MsgBox::kOkOnly, "About ...");
}

void MainWindow::SetPanel(int panel, const std::string& text) {
    panels_.at(static_cast<std::size_t>(panel - 1)) = text;
    View.PanelChanged(panel);
}

void MainWindow::ShowSelectedCount() {
    SetPanel(2, std::string(kSelectedWords) + std::to_string(ListViewSelectedCount()));
}

std::size_t MainWindow::ShownSelectedCount() const {
    if (Panel(2).size() < kSelectedWords.size()) return 0;
    return static_cast<std::size_t>(CodePage::LeadingNumber(Panel(2).substr(kSelectedWords.size())));
}

void MainWindow::ShowNameLength() {
    const std::size_t row = FileList.Current();
    if (row == RowList::kNone) return;
    SetPanel(4, "Length of filename: " + std::to_string(HostPath::Length(FileList.At(row).Text)) + " char.");
}

void MainWindow::ShowFolder() { SetPanel(3, "Current Path: " + modBase::ActivPath + "\\"); }

} // namespace calyvox
