// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/FolderView.h"
#include "app/forms/Forms.h"
#include "app/forms/RowListView.h"
#include "app/forms/Termination.h"
#include "app/forms/WindowServices.h"
#include "app/forms/frmProgress.h"
#include "app/modBase.h"
#include "editors/ID3V1Fields.h"
#include "editors/forms/frmID3V1.h"
#include "engine/MP3.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/forms/frmMain.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

using namespace calyvox;
using namespace calyvox::MsgBox;

namespace {

// The main window over "0.mp3" to "4.mp3", titles "t0" to "t4", and a folder. Boxes are answered and counted.
struct MainFormTest : testing::Test {
    MainFormTest() {
        InstallServices(true);
        TheServices().MessageBox = [this](const auto&, int, const auto&) { return ++Boxes, Answer; };
        Forms::Instance().Register("frmMain", [this] { return new frmMain([this] { Ended = true; }); });
        Forms::Instance().Register("frmProgress", [] { return new frmProgress; });
        Forms::Instance().Register("frmID3V1", [] { return new frmID3V1; });
        for (const std::string number : {"0", "1", "2", "3", "4"})
            Files.Write(number + ".mp3", Mp3("t" + number));
        std::filesystem::create_directory(Files.Host("sub"));
        Edited.Title = "new";
        Start();
    }
    ~MainFormTest() override {
        Answer = kNo;
        modBase::MsgResult = 0;
        Close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        TheServices() = Services();
    }

    static std::string Mp3(const std::string& t) {
        return build::Audio() + build::Id3v1({t, "", "", "", ""});
    }
    static bool IsOpen() { return Forms::Instance().IsLoaded("frmMain"); }
    static Form& Main() { return *Forms::Instance().Touch("frmMain"); }
    static RowListView& View() { return *Main().findChild<RowListView*>(); }
    static FolderView& Tree() { return *Main().findChild<FolderView*>(); }
    static std::string Panel(int number) { return TheMainWindow().Panel(number); }
    // As a new process does.
    void Start(const std::string& file = "") {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        TheMainWindow().Options = MainOptions();
        List.SetSort(0, true);
        modBase::CommandLine = clsCommandLine();
        modBase::CommandLine.Resolve(CommandText({"/P=" + Files.Host(file)}, "/"));
        Main();
    }
    static void Close() { Main().windowHandle()->close(); }
    // To the window that has the input.
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* window = QApplication::activeModalWidget();
        if (!window) window = &Main();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == window; }));
        QTest::keyClick(window->windowHandle(), key, modifiers);
    }
    // As far as the window system lets it through.
    static void Click(const QWidget& widget) {
        const QPoint place = widget.mapTo(widget.window(), QPoint(30, 5));
        QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {}, place);
    }
    static void Trigger(std::initializer_list<const char*> items) {
        for (const char* item : items)
            Main().findChild<QAction*>(item)->trigger();
    }

    TempFolder Files;
    const std::string Top = Files.InsidePath();
    ID3V1Fields Edited;
    RowList& List = TheMainWindow().FileList;
    int Boxes = 0, Answer = kNo;
    bool Ended = false;
};

TEST_F(MainFormTest, AStartOnAFolderListsItAndOnAFileSelectsItToo) {
    EXPECT_EQ(Panel(1) + Panel(2) + Panel(3), "MP3s counted: 5Selected MP3s: 0Current Path: " + Top + "\\");
    Close();
    Files.Write("4\u0416:.mp3", Mp3(""));
    Start("4\u0416:.mp3");
    EXPECT_TRUE(List.IsSelected(5) && View().currentIndex().data() == QStringLiteral("4\u0416:"));
}

TEST_F(MainFormTest, ThreeFilesSteppedThroughAndSavedDifferInTheirTagsAlone) {
    Key(Qt::Key_Down);
    Key(Qt::Key_E, Qt::ControlModifier);
    Key(Qt::Key_Tab);
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_Y, Qt::Key_Z}) {
        Key(Qt::Key_A, Qt::ControlModifier);
        Key(key);
        key == Qt::Key_Z ? Key(Qt::Key_Return) : Key(Qt::Key_N, Qt::ControlModifier);
    }
    EXPECT_TRUE(Files.Read("1.mp3") == Mp3("t1") && List.IsSelected(3)) << "not before it is saved";
    Key(Qt::Key_S, Qt::ControlModifier);
    for (const char* title : {"0t0", "1x", "2y", "3z", "4t4"})
        EXPECT_TRUE(Files.Read(title[0] + std::string(".mp3")) == Mp3(title + 1)) << title;
    EXPECT_TRUE(!List.Ascending() && Boxes == 0) << "the dialog has turned the order round";
}

TEST_F(MainFormTest, ClosingAsksAndALeftOverAnswerCountsWithoutABoxButQuitEndsAllTheSame) {
    // Answer of an earlier box, answer of the one that changes bring about or 0, whether it closes.
    const int kCases[][3] = {{0, kCancel, 0}, {0, kYes, 1}, {0, kNo, 1}, {kCancel, 0, 0}, {kYes, 0, 1}};
    for (const bool quits : {false, true})
        for (const auto& [left, answer, closes] : kCases) {
            Files.Write("0.mp3", Mp3("t0"));
            Boxes = modBase::MsgResult = 0;
            IsOpen() ? TheMainWindow().FileListRefresh() : Start();
            if (answer != 0) Edited.SaveTag(TheMainWindow(), 0);
            modBase::MsgResult = static_cast<std::int16_t>(left);
            Answer = answer;
            quits ? Trigger({"submnuQuit"}) : Close();
            EXPECT_TRUE(IsOpen() != closes && Boxes == (answer != 0) && Ended == quits) << left << answer;
            EXPECT_TRUE(Files.Read("0.mp3") == Mp3(answer == kYes ? "new" : "t0"));
        }
}

TEST_F(MainFormTest, WhatTheUserArrangedIsThereAgain) {
    View().header()->moveSection(0, 1);
    View().header()->resizeSection(0, 123);
    const QByteArray columns = View().header()->saveState();
    Main().setGeometry(41, 63, 900, 470);
    Key(Qt::Key_F9);
    const auto kToggles = {"submnuQuickEdit", "submnuNotSave", "submnudbl(1)", "submnuToolbar(1)"};
    Trigger(kToggles);
    Trigger({"View", "CLSDFOLD"});
    Close();
    modBase::VerShow = 0;
    Start();
    EXPECT_TRUE(View().header()->saveState() == columns && !Tree().isVisible());
    EXPECT_TRUE(Main().geometry() == QRect(41, 63, 900, 470) && Panel(5) == "Subdir.: Yes");
    for (const char* item : kToggles)
        EXPECT_TRUE(Main().findChild<QAction*>(item)->isChecked()) << item;
    EXPECT_EQ(Main().windowTitle(), "Current view: ID3V1 - Calyvox");
    Trigger({"CLSDFOLD", "submnuSubDir", "submnuNotSave", "View"});
    EXPECT_NEAR(Tree().width(), 200, 20) << "as wide as designed";
}

TEST_F(MainFormTest, NothingClosesOrReloadsUnderARunningPassAndCancelStopsIt) {
    int ends = 0, disturbed = 0;
    const int view = modBase::VerShow;
    const Termination termination([&] { ++ends; });
    TheServices().Yield = [&] {
        QCoreApplication::processEvents();
        if (modBase::LoadedMP3s->Count() != 3 || disturbed++ != 0) return;
        Form& progress = *Forms::Instance().Touch("frmProgress");
        std::raise(SIGTERM);
        Click(*Tree().viewport());
        for (Form* form : {&Main(), &progress}) {
            EXPECT_FALSE(form->windowHandle()->close() || form->close());
            for (const Qt::Key key : {Qt::Key_F5, Qt::Key_Escape, Qt::Key_Return})
                QTest::keyClick(form->windowHandle(), key);
        }
        Trigger({"submnuRefresh", "submnuSave", "submnuQuit", "View"});
        QTest::qWait(150); // longer than a signal is kept before the next look
        EXPECT_TRUE(progress.isVisible() && !modBase::CancelRun && !Ended && ends == 0);
        Click(*progress.findChild<QWidget*>("btnCancel"));
    };
    Key(Qt::Key_F5);
    EXPECT_TRUE(disturbed > 0 && List.Count() == 3 && Boxes == 0 && modBase::VerShow == view &&
                Tree().Path() == Top);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ends == 1; })) << "the signal was kept";
}

TEST_F(MainFormTest, TheTreeChangesTheFolderOnlyWhereTheQuestionAllowsItAndKeepsTheKeys) {
    Edited.SaveTag(TheMainWindow(), 0);
    Tree().setFocus();
    Key(Qt::Key_Right);
    Answer = kCancel;
    Key(Qt::Key_Down);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Boxes == 1; }) && Tree().Path() == Top);
    Answer = kYes;
    Key(Qt::Key_Down);
    EXPECT_TRUE(QTest::qWaitFor([this] { return List.Count() == 0; }) && Files.Read("0.mp3") == Mp3("new"));
    EXPECT_EQ(Panel(3) + Panel(4), "Current Path: " + Files.Inside("sub") + "\\");
    EXPECT_EQ(Main().focusWidget(), &Tree());
}

} // namespace
