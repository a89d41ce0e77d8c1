// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Services.h"
#include "app/forms/Forms.h"
#include "app/forms/RowListView.h"
#include "app/forms/WindowServices.h"
#include "app/forms/frmProgress.h"
#include "app/modBase.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/forms/frmMain.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include <filesystem>

using namespace calyvox;

namespace {

// The main window over a folder. Boxes are answered with No, and their titles kept.
struct RenameFormTest : testing::Test {
    RenameFormTest() {
        InstallServices(true);
        TheServices().MessageBox = [this](auto&, int, auto& title) { return Boxes += title, MsgBox::kNo; };
        Forms::Instance().Register("frmMain", [] { return new frmMain([] {}); });
        Forms::Instance().Register("frmProgress", [] { return new frmProgress; });
    }
    ~RenameFormTest() override {
        modBase::MsgResult = 0;
        Main().windowHandle()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        TheServices() = Services();
    }
    void Start(const std::vector<std::string>& names, const std::string& folder = "") {
        for (const std::string& name : names)
            Files.Write(folder + name + ".mp3", build::Audio());
        List.SetSort(0, true);
        modBase::CommandLine = clsCommandLine();
        modBase::CommandLine.Resolve(CommandText({"/P=" + Files.Host(folder)}, "/"));
        Main();
        Window.Options.QuickEdit = false;
    }
    static Form& Main() { return *Forms::Instance().Touch("frmMain"); }
    static void Keys(std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers modifiers = {}) {
        for (const Qt::Key key : keys) {
            Main().activateWindow();
            EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeWindow() == &Main(); }));
            QTest::keyClick(Main().windowHandle(), key, modifiers);
            QCoreApplication::processEvents();
        }
    }
    static void Save() { Keys({Qt::Key_S}, Qt::ControlModifier); }

    TempFolder Files;
    MainWindow& Window = TheMainWindow();
    RowList& List = Window.FileList;
    std::string Boxes;
};

TEST_F(RenameFormTest, QuickEditWalksDownTheRowsAndNoNameIsGivenTwice) {
    Start({"0", "1", "2", "3"});
    Keys({Qt::Key_Q}, Qt::ControlModifier);
    Keys({Qt::Key_F2, Qt::Key_A, Qt::Key_Return, Qt::Key_B, Qt::Key_Return, Qt::Key_C, Qt::Key_Return});
    Keys({Qt::Key_X, Qt::Key_Escape, Qt::Key_F2, Qt::Key_A, Qt::Key_Return});
    EXPECT_EQ(Files.Listing() + Boxes + List.At(3).Text, "0.mp3 1.mp3 2.mp3 3.mp3 Could not rename3");
    Save();
    EXPECT_EQ(Files.Listing(), "3.mp3 a.mp3 b.mp3 c.mp3 ");
}

TEST_F(RenameFormTest, KeysInTheEditBoxActOnItsTextAndACommandTakesItOver) {
    Start({"abc", "d"});
    Keys({Qt::Key_Space, Qt::Key_F2, Qt::Key_Home, Qt::Key_Delete});
    Save();
    EXPECT_EQ(Files.Listing() + Boxes, "bc.mp3 d.mp3 ");
    Keys({Qt::Key_F2, Qt::Key_End});
    Keys({Qt::Key_A}, Qt::ControlModifier);
    Keys({Qt::Key_Z});
    Save();
    EXPECT_EQ(Files.Listing() + Boxes + Window.Panel(2), "d.mp3 z.mp3 Selected MP3s: 1");
}

TEST_F(RenameFormTest, OneLetterOfANameChangesAndTheOthersStay) {
    Start({"\u65e5\u672c!", "\\!", "\xFF!"});
    for (std::size_t row = 0; row < List.Count(); ++row) {
        List.SetCurrent(row);
        Keys({Qt::Key_F2, Qt::Key_End, Qt::Key_Backspace, Qt::Key_B, Qt::Key_Return});
    }
    Save();
    EXPECT_EQ(Files.Listing() + Boxes, "\\b.mp3 \u65e5\u672cb.mp3 \xFF\x62.mp3 ");
}

TEST_F(RenameFormTest, AFolderRenamedInTheTreeTakesUnsavedFilesAlongAndARightClickOpensTheMenu) {
    std::filesystem::create_directory(Files.Host("old"));
    Start({"0"}, "old/");
    Keys({Qt::Key_F2, Qt::Key_A, Qt::Key_Return});
    Keys({Qt::Key_Tab, Qt::Key_F2, Qt::Key_N, Qt::Key_Return});
    Save();
    EXPECT_EQ(Files.Listing() + Boxes + Files.Read("n/a.mp3"), "n " + build::Audio());
    const QPoint place = Main().findChild<RowListView*>()->viewport()->mapTo(&Main(), QPoint(9, 9));
    QTest::mouseClick(Main().windowHandle(), Qt::RightButton, {}, place);
    QWidget* const popup = QApplication::activePopupWidget();
    EXPECT_TRUE(popup && popup->objectName() == "mnuFunctions" && popup->close());
}

} // namespace
