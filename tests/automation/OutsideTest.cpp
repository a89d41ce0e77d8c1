// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/Version.h"
#include "app/clsRegistry.h"
#include "app/modBase.h"
#include "automation/DatabaseLink.h"
#include "automation/Lists.h"
#include "automation/Player.h"
#include "mainwindow/MainWindow.h"
#include "platform/HostPath.h"
#include "support/FailingCalls.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

using namespace calyvox;
using namespace std::string_literals;

namespace {

// Selected are "a", which is to be renamed to "new", and a file whose name has all that is a trap.
class OutsideTest : public testing::Test {
protected:
    OutsideTest() {
        for (const std::string& name : {"a.mp3"s, trap_, "z.mp3"s})
            folder_.Write(name, build::Audio() + build::Id3v1({"<&\x80>", "", "", "", ""}));
        modBase::ActivPath = folder_.InsidePath();
        modBase::VerShow = 1;
        window_.FileList.SetSort(0, true);
        window_.FileListRefresh();
        window_.FileList.Select(0, 1, RowList::Flag::On);
        window_.FileOf(0).SetMP3File_OrigFileName(folder_.Inside("a.mp3"));
        window_.FileOf(0).SetMP3File_FileName(folder_.Inside("new.mp3"));
        TheServices().MessageBox = [this](auto&, int, auto& title) { return box_ += title, answer_; };
        TheServices().BrowseForFolder = [this](auto&) { return chosen_; };
        TheServices().InputBox = [this](auto&, auto&) { return name_; };
    }
    ~OutsideTest() override { TheServices() = Services(), modBase::VerShow = 0; }
    // What the file holds after a command, "-" without it, and the box.
    std::string Made(void (*command)(MainWindow&), const std::string& file) {
        command(window_);
        return (std::filesystem::exists(folder_.Host(file)) ? folder_.Read(file) : "-") +
               std::exchange(box_, "");
    }
    std::string Script(const std::string& name, const std::string& script) const {
        const std::string path = folder_.Write(name, "#!/bin/sh\ncd \"${0%/*}\"; " + script);
        return ::chmod(folder_.Host(name).c_str(), 0755), path;
    }
    static void SetScanner(const std::string& product, const std::string& path) {
        clsRegistry registry;
        registry.SetKey("HKLM\\SOFTWARE\\" + product + "\\Applications\\MSScan\\Path");
        registry.setValue(path, RegistryStore::kText);
    }

    TempFolder folder_;
    MainWindow window_;
    const std::string trap_ = "b \"'$(touch x)`%P;\xD0\x96\xFF.mp3";
    std::string box_, chosen_ = folder_.InsidePath(), name_ = HostPath::FromHost("My \xD0\x96");
    int answer_ = MsgBox::kNo;
};

TEST_F(OutsideTest, APlaylistHasTheHostPathsOfTheSelectedFilesOrTheOldOneStays) {
    const std::string lines = folder_.Host("new.mp3") + "\r\n" + folder_.Host(trap_) + "\r\n";
    EXPECT_EQ(Made(CreateM3U, "My \xD0\x96.m3u"), lines);
    for (const char* name : {"a/b", "a\\b", "a:b", ""})
        EXPECT_EQ((name_ = name, Made(CreateM3U, ".m3u")), *name ? "-Error" : "-") << name;
    name_ = "x";
    folder_.Write("x.m3u", "old");
    EXPECT_EQ((std::make_unique<FullDisk>(10), Made(CreateM3U, "x.m3u")), "oldError");
    ::chmod(folder_.Host("x.m3u").c_str(), 0444);
    EXPECT_EQ(Made(CreateM3U, "x.m3u"), "oldError");
}

TEST_F(OutsideTest, ThePageShowsTheColumnsInTheirOrderUnescaped) {
    window_.View.ColumnOrder = [] { return std::vector<std::size_t>{3, 0}; };
    const auto row = [](const char* tag, const char* one, const char* other) {
        return "  <tr "s + tag + ">\r\n    <td>" + one + "</td>\r\n    <td>" + other + "</td>\r\n  </tr>\r\n";
    };
    EXPECT_EQ(
        Made(CreateHTML, "Calyvox-List.htm"),
        "<html>\r\n<head>\r\n<title>Calyvox-MP3-List</title>\r\n<meta http-equiv=\"Content-Type\" "
        "content=\"text/html; charset=iso-8859-1\">\r\n</head>\r\n\r\n\r\n<body bgcolor=\"#FFFFFF\">\r\n"
        "<h1>MP3-Files in '" +
            chosen_ + "'</h1>\r\n<p>(Created by <a href=\"" + kHomePage +
            "\" target=\"_blank\">Calyvox</a>)</p>\r\n<table border=\"0\" cellspacing=\"2\" "
            "cellpadding=\"2\">\r\n" +
            row("bgcolor=\"#CCCCCC\"", "Title", "Filename") + row("valign=\"top\"", "<&\x80>", "a") +
            row("valign=\"top\"", "<&\x80>", "b \"'$(touch x)`%P;??") + "</table>\r\n</body>\r\n");
    EXPECT_EQ((chosen_ = "\\no\\such", Made(CreateHTML, "none")), "-Error");
    EXPECT_EQ((chosen_ = "", Made(CreateHTML, "none")), "-") << "Cancel";
}

TEST_F(OutsideTest, TheScannerGetsTheNamesOnTheDiskAfterTheQuestionAndIsWaitedFor) {
    EXPECT_EQ(Made(submnuAddDB, "seen"), "-") << "without a scanner";
    const std::string script =
        "(echo $1 $3; cat $2) >seen; printf %s $2 >temp; until [ -e painted ]; do :; done";
    SetScanner("Brofle\\Andantico\\2.0", Script("my scan", script) + " -x");
    TheServices().KeepPainting = [&] { folder_.Write("painted", ""); };
    EXPECT_EQ(Made(submnuAddDB, "seen"),
              "-x /dialog\n" + folder_.Host("a.mp3") + "\n" + folder_.Host(trap_) + "\n");
    EXPECT_FALSE(std::filesystem::exists(folder_.Read("temp")));
    SetScanner("G.G.\\MusicStation\\1.0", Script("first", "head -qn1 $1 >named"));
    window_.FileOf(0).SetChanged(true);
    for (const auto& [answer, name] : {std::pair(MsgBox::kCancel, "-"s),
                                       {MsgBox::kNo, folder_.Host("a.mp3") + "\n"},
                                       {MsgBox::kYes, folder_.Host("new.mp3") + "\n"}})
        EXPECT_EQ((answer_ = answer, Made(submnuAddDB, "named")), name + "Save changes?");
}

TEST_F(OutsideTest, EachFileIsPlayedUnderItsNameOnTheDiskAsPartOfOneArgument) {
    ::setenv("PATH", (folder_.HostPath() + ":" + std::getenv("PATH")).c_str(), 1);
    const std::string script = "for f; do :; done; printf '%s|' \"$@\" >\"$f.fifo\"";
    Script("xdg-open", script);
    WriteSetting("Parameter\\PlayerPath", Script("my player", script), RegistryStore::kText);
    WriteSetting("Parameter\\PlayerParameter", " -v \"b c\"  %P:%P %P ", RegistryStore::kText);
    for (const std::string isDefault : {"1", "0"}) {
        WriteSetting("Parameter\\DefaultPlayer", isDefault, RegistryStore::kText);
        for (const std::string& name : {"a.mp3"s, trap_})
            ::mkfifo(folder_.Host(name + ".fifo").c_str(), 0600);
        MenuPlay(window_);
        for (const std::string& name : {folder_.Host("a.mp3"), folder_.Host(trap_)})
            EXPECT_EQ(ReadHostFile(name + ".fifo"),
                      (isDefault == "1" ? "" : "-v|b c|" + name + ":" + name + "|") + name + "|");
    }
    WriteSetting("Parameter\\PlayerPath", "Not specified", RegistryStore::kText);
    EXPECT_EQ(Made(MenuPlay, "none"), "-Error") << "told once";
}

} // namespace
