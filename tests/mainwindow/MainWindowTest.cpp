// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/MainWindow.h"

#include "app/ErrorList.h"
#include "app/Services.h"
#include "app/modBase.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace calyvox;
using namespace std::string_literals;

class MainWindowTest : public testing::Test {
protected:
    MainWindowTest() {
        TheServices().MessageBox = [this](auto&, int, auto& title) { return boxes_ += title, answer_; };
    }
    ~MainWindowTest() override { TheServices() = Services(), TheErrors().Clear(); }
    void List(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            folder_.Write(name, build::Audio());
        window_.FolderChanged(folder_.InsidePath());
    }
    void Change(std::size_t row) {
        window_.FileOf(row).SetID3V1_Present(true);
        window_.FileOf(row).SetChanged(true);
        window_.FileList.SetCell(row, 15, "Y");
    }
    std::string Cells(std::size_t first, std::size_t last) const {
        std::string cells;
        for (std::size_t row = 0; row < window_.FileList.Count(); ++row)
            for (std::size_t column = first; column <= last; ++column)
                cells += RowList::Cell(window_.FileList.At(row), column) + "|";
        return cells;
    }
    TempFolder folder_;
    MainWindow window_;
    std::string boxes_;
    int answer_ = 0;
};

TEST_F(MainWindowTest, AScanTakesFilesAloneAndMakesNone) {
    std::filesystem::create_directory(folder_.Host("sub.mp3"));
    std::filesystem::create_directory_symlink(folder_.HostPath(), folder_.Host("sub.mp3/up"));
    std::filesystem::create_symlink("missing", folder_.Host("gone.mp3"));
    folder_.Write("sub.mp3/B.MP3",
                  build::Tag(3, build::Text(3, "TIT2", "\xFF\0\xE0"s), 0x80) + build::Audio());
    List({"a.mp3"});
    EXPECT_EQ(Cells(0, 0) + (window_.CheckSelection() ? "selected" : boxes_), "a|Select files");
    window_.Options.SubDir = true;
    List({});
    EXPECT_EQ(Cells(0, 0) + Cells(14, 14), "a|B||\\sub.mp3|");
    const std::string refused = folder_.Inside("gone.mp3") + "   *** Could not be opened for tagging ***\r\n";
    EXPECT_EQ(TheErrors().Content() + folder_.Listing(), refused + refused + "a.mp3 gone.mp3 sub.mp3 ");
}

TEST_F(MainWindowTest, TheFileIsShownOnTopInTurnedOrder) {
    std::string shown;
    window_.View.EnsureVisible = [&](std::size_t row) { shown += std::to_string(row); };
    window_.View.ListViewVisibleRows = [&] { return shown.size() < 2 ? 2U : 0U; };
    List({"a.mp3", "b.mp3", "c.mp3"});
    window_.Activated();
    window_.FillListView(folder_.Inside("c.mp3"));
    window_.FillListView(folder_.Inside("c.mp3"));
    EXPECT_EQ(shown, "0100") << "the row, and the last one of its page";
}

TEST_F(MainWindowTest, ARowShowsTheTagOfTheViewWithItsChanges) {
    std::string frames;
    for (const auto& text : {"COMM\0engd\0C1"s, "COMM\0engd\0C2"s, "TPE1\0A1"s, "TPE1\0A2"s, "TDRC\0MMII2"s})
        frames += build::Frame(3, text.substr(0, 4), text.substr(4));
    folder_.Write("a.mp3",
                  build::Tag(3, frames) + build::Audio() + build::Id3v1({"T", "A", "B", "80", "C", 0, 17}));
    List({"b.mp3"});
    const std::string audio = "MPEG-1.0 Layer III|128000|44100|Joint Stereo|";
    EXPECT_EQ(Cells(1, 13), "Yes|A2|||C1||MMII||" + audio + "Ver. 2.3|No||||||||" + audio + "No|");
    Change(0);
    window_.SwitchView();
    EXPECT_EQ(Cells(1, 15), "Yes|A|T|B|C|Rock|80|0|" + audio + "Ver. 2.3||Y|No||||||||" + audio + "No|||");
}

TEST_F(MainWindowTest, WhatACancelledPassLeftIsThereForTheNextSave) {
    List({":\xC3\xA4.mp3", "a.mp3", "b\xE3\x81\x82.mp3", "c\xFF.mp3", std::string(251, 'n') + ".mp3"});
    for (const std::size_t row : {0, 1, 3, 4})
        Change(row);
    std::filesystem::remove(folder_.Host("a.mp3"));
    TheServices().Yield = [yields = 0]() mutable { modBase::CancelRun = ++yields == 5; };
    window_.submnuSave();
    EXPECT_EQ(Cells(15, 15), "|Y||Y|Y|");
    window_.submnuSave();
    EXPECT_EQ(Cells(15, 15), "|Y||||");
    TheServices().Yield = [] { modBase::CancelRun = modBase::LoadedMP3s->Count() == 3; };
    List({});
    EXPECT_EQ(Cells(1, 1), "Yes|No|Yes|") << "what was read stays";
}

TEST_F(MainWindowTest, AnAnswerThatIsLeftCountsAndCancelKeepsTheFolderAlone) {
    List({"a.mp3"});
    const std::int16_t rows[][3] = {{0, 0, 0}, {2, 0, 2}, {6, 0, 6}, {2, 7, 7}, {0, 6, 6}, {6, 2, 2}};
    for (const auto& [left, answer, after] : rows) // left before, given to a box, left afterwards
        for (const bool forget : {false, true}) {
            window_.FileOf(0).SetChanged(answer != 0);
            modBase::MsgResult = left;
            answer_ = answer;
            EXPECT_EQ(window_.SaveQuestion(forget), after != MsgBox::kCancel) << left << answer;
            EXPECT_EQ(modBase::MsgResult, forget && after != MsgBox::kNo ? 0 : after);
            EXPECT_EQ(std::exchange(boxes_, ""), answer != 0 ? "Save changes?" : "");
            EXPECT_EQ(window_.FileOf(0).Changed(), answer == 2 || answer == 7);
        }
    EXPECT_FALSE(window_.BeforeFolderChange());
    window_.View.RefreshTree = [&] { EXPECT_FALSE((answer_ = 7, window_.BeforeFolderChange())) << "busy"; };
    window_.submnuRefresh();
    EXPECT_TRUE(window_.BeforeFolderChange() && !window_.FileOf(0).Changed());
    window_.FolderChanged("\\");
    EXPECT_EQ(modBase::ActivPath + window_.Panel(3), "Current Path: \\");
}
