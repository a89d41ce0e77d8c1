// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Services.h"
#include "app/modBase.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/NeedleIndex.h"
#include "mainwindow/Passes.h"
#include "mainwindow/Renaming.h"
#include "mainwindow/RowCells.h"
#include "support/FailingCalls.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

using namespace calyvox;

namespace {

class ListCommandsTest : public testing::Test {
protected:
    ListCommandsTest() {
        TheServices().MessageBox = [this](auto&, int, auto& title) { return boxes_ += title + "|", answer_; };
    }
    ~ListCommandsTest() override { TheServices() = Services(); }
    void List(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            folder_.Write(name,
                          build::Tag(3, build::Text(3, "TPE1", "A")) + build::Audio() + build::Id3v1({}));
        window_.FolderChanged(folder_.InsidePath());
    }
    std::string Column(std::size_t column) const {
        std::string cells;
        for (std::size_t row = 0; row < window_.FileList.Count(); ++row)
            cells += RowList::Cell(window_.FileList.At(row), column) + "|";
        return cells;
    }
    void SelectOnly(const std::string& text) {
        for (std::size_t row = 0; row < window_.FileList.Count(); ++row)
            if (window_.FileList.At(row).Text == text) window_.FileList.SelectOnly(row, row);
        window_.ShowSelectedCount();
    }
    TempFolder folder_;
    MainWindow window_;
    std::string boxes_;
    int answer_ = MsgBox::kOk;
};

TEST_F(ListCommandsTest, TracksSortAsNumbersAndTheArrowFollows) {
    std::string arrows;
    window_.View.ShowHeaderIcon = [&](std::size_t, bool ascending) { arrows += ascending ? '^' : 'v'; };
    for (const char* cell : {"10", "x", "9", "2/12", "", "-3", "b/1", "0", "-20", "1.5", " 4 "})
        window_.FileList.SetCell((window_.FileList.Add("r"), window_.FileList.Count() - 1), 8, cell);
    window_.ColumnClick(8);
    EXPECT_EQ(Column(8), "x||-20|-3|0|1.5|2/12| 4 |9|10|b/1|");
    window_.ColumnClick(8);
    EXPECT_EQ(Column(8), "b/1|10|9| 4 |2/12|1.5|0|-3|-20|x||");
    window_.ColumnClick(0);
    EXPECT_EQ(arrows, "^v^");
}

TEST_F(ListCommandsTest, ANameIsCleanedOrRefusedAndOnlyNotedUntilTheSave) {
    std::filesystem::create_directory(folder_.Host("sub"));
    window_.Options.SubDir = true;
    List({"a.mp3", "b.mp3", "sub/c.mp3"});
    const struct {
        std::string Name, Row, Boxes;
    } kCases[] = {{"x:y", "x_y", "Wrong character|"},
                  {"B", "x_y", "Could not rename|"},
                  {"c", "c", ""}, // the other c is in another folder, where no "c" would be new
                  {"", "c", ""},
                  {std::string(300, 'n'), std::string(300, 'n'), ""}};
    for (const auto& one : kCases) {
        Renaming::AfterLabelEdit(window_, 0, one.Name);
        const bool taken = one.Name == "c";
        EXPECT_EQ(std::exchange(boxes_, ""), taken ? "Could not rename|" : one.Boxes) << one.Name;
        EXPECT_EQ(window_.FileList.At(0).Text, taken || one.Name.empty() ? "x_y" : one.Row);
    }
    EXPECT_EQ(window_.FileOf(0).MP3File_FileName(), folder_.Inside(std::string(250, 'n') + ".mp3"));
    EXPECT_EQ(folder_.Listing() + Column(15), "a.mp3 b.mp3 sub Y|||");
    Renaming::AfterLabelEdit(window_, 0, "new");
    window_.submnuSave();
    EXPECT_EQ(folder_.Listing() + Column(15), "b.mp3 new.mp3 sub |||");
}

TEST_F(ListCommandsTest, ARenamedFolderTakesItsUnsavedFilesAlong) {
    std::filesystem::create_directories(folder_.Host("old/sub"));
    std::filesystem::create_directory(folder_.Host("other"));
    window_.Options.SubDir = true;
    List({"old/sub/a.mp3"});
    window_.FolderChanged(folder_.Inside("old"));
    Renaming::AfterLabelEdit(window_, 0, "b");
    for (const char* name : {"new:", "other", ""})
        EXPECT_FALSE(Renaming::AfterFolderRename(window_, folder_.Inside("old"), name));
    EXPECT_FALSE(Renaming::AfterFolderRename(window_, "", "x")) << "the root";
    EXPECT_EQ(boxes_, "Wrong character|Error during renaming|Error during renaming|");
    EXPECT_TRUE(Renaming::AfterFolderRename(window_, folder_.Inside("old"), " new "));
    EXPECT_EQ(window_.Panel(3), "Current Path: " + folder_.Inside("new") + "\\");
    window_.submnuSave();
    EXPECT_TRUE(std::filesystem::exists(folder_.Host("new/sub/b.mp3")));
}

TEST_F(ListCommandsTest, RemovedTagsGoAtTheSaveAndLeaveTheOtherView) {
    List({"a.mp3", "b.mp3"});
    SelectOnly("a");
    modBase::VerShow = 2;
    answer_ = MsgBox::kCancel;
    Passes::RemoveID3V1(window_);
    EXPECT_EQ(Column(1), "Yes|Yes|");
    answer_ = MsgBox::kOk;
    Passes::RemoveID3V1(window_);
    EXPECT_EQ(Column(1) + Column(2) + Column(15), "No|Yes|A|A|Y||");
    Passes::RemoveID3V2(window_);
    EXPECT_EQ(Column(13) + Column(2), "No|Ver. 2.3||A|");
    EXPECT_NE(folder_.Read("a.mp3"), build::Audio());
    window_.submnuSave();
    EXPECT_EQ(folder_.Read("a.mp3"), build::Audio());
}

TEST_F(ListCommandsTest, DeletingGoesByNameAndShowsTheNextFile) {
    std::filesystem::create_directory(folder_.Host("sub"));
    window_.Options.SubDir = true;
    List({"sub/b.mp3", "a.mp3", "b.mp3", "c.mp3", "d.mp3"});
    std::string shown;
    window_.View.EnsureVisible = [&](std::size_t row) { shown = window_.FileList.At(row).Text; };
    window_.FileList.SetCurrent(2);
    window_.FileList.SelectOnly(2, 2); // one of the two
    window_.ShowSelectedCount();
    Passes::MenuDelete(window_);
    EXPECT_EQ(Column(0) + folder_.Listing(), "a|b|c|d|a.mp3 b.mp3 c.mp3 d.mp3 sub ");
    EXPECT_EQ(shown, "c");
    SelectOnly("c");
    const FailingCalls failing(HostCalls::Call::Unlink, 1, EACCES);
    Passes::MenuDelete(window_);
    EXPECT_EQ(boxes_, "Are you sure ...|Are you sure ...|Access denied!|");
}

TEST(NeedleIndexTest, TheFirstThatHoldsTheNeedleIsFoundButAnExactNameGoesBefore) {
    NeedleIndex index({"\\a.mp3\\x.mp3", "\\A.MP3", "\\s\\A.mp3", "\\a.mp3", "\\a.mp3.mp3", "\\b.MP3"});
    std::string found;
    for (const char* needle : {"\\a.mp3", "\\b.mp3", "\\A.mp3", "\\a.mp3", "\\a.mp3", "\\a.mp3", "\\a.mp3"})
        found += std::to_string(static_cast<int>(index.Take(needle))) + " ";
    EXPECT_EQ(found, "3 5 2 0 1 4 -1 ");
}

} // namespace
