// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/SettingsCatalogue.h"
#include "app/forms/Forms.h"
#include "app/modBase.h"
#include "editors/forms/frmCOMMEdit.h"
#include "editors/forms/frmID3V2.h"
#include "engine/MP3.h"
#include "engine/V2LDCFrame.h"
#include "engine/V2TextFrame.h"
#include "mainwindow/MainWindow.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

using namespace calyvox;

namespace {

const std::string kArtist = std::string("TPE1=a\0b\r\nc", 11);

QWidget* At(const char* name) { return QApplication::activeModalWidget()->findChild<QWidget*>(name); }
void Press(const char* name, const QKeySequence& key) { QTest::keySequence(At(name), key); }
QString Typed(const char* name, const QString& text) {
    QTest::keyClicks(At(name), text);
    return At(name)->property(qobject_cast<QComboBox*>(At(name)) ? "currentText" : "text").toString();
}
void Open() { Forms::Instance().ShowModal("frmID3V2", "frmMain"); }
MP3& File(std::size_t row = 0) { return TheMainWindow().FileOf(row); }
// The frames that can be edited, in their order.
std::string Frames() {
    std::string all;
    for (const V2Frame& frame : File().ID3V2()) {
        if (const auto* text = dynamic_cast<const V2TextFrame*>(&frame))
            all += frame.FrameHeader_FrameID() + "=" + text->Content() + ";";
        if (const auto* n = dynamic_cast<const V2LDCFrame*>(&frame)) all += n->Lan() + n->Content() + ";";
    }
    return all;
}

// The editor over three files, without the main window.
struct ID3V2FormTest : testing::Test {
    ID3V2FormTest() {
        Forms::Instance().Register("frmID3V2", [] { return new frmID3V2; });
        Forms::Instance().Register("frmCOMMEdit", [] { return new frmCOMMEdit; });
        WriteSetting("Settings\\OwnGenreOnly", "0", RegistryStore::kNumber);
        const std::string nul = build::Nuls(1), other = build::Frame(3, "TXXX", "x");
        const std::string rest = build::Frame(3, "COMM", nul + "eng" + nul + "one") +
                                 build::Frame(3, "COMM", nul + "ger" + nul + "two") + other;
        const std::string tag = build::Tag(3, build::Text(3, "TPE1", kArtist.substr(5)) + rest);
        Files.Write("0.mp3", tag + build::Audio()), Files.Write("1.mp3", tag + build::Audio());
        Files.Write("2.mp3", build::Tag(3, build::Frame(3, "TIT2", "\1\xFF\xFEz")) + build::Audio());
        modBase::ActivPath = Files.InsidePath();
        TheMainWindow().FileListRefresh();
        Open();
    }
    ~ID3V2FormTest() override {
        Forms::Instance().Unload("frmID3V2");
        modBase::SingleCOMMGenre() = false;
    }
    TempFolder Files;
};

TEST_F(ID3V2FormTest, WhatIsTypedIsThereAgainAndWhatIsNotTouchedStaysAsItWas) {
    const QRegularExpression names("^(?!TPE1|WCOM)[A-Z0-9]{4}$");
    const auto boxes = [&] { return At("ID3V2")->findChildren<QLineEdit*>(names); };
    for (QLineEdit* box : boxes())
        QTest::keyClick(box, Qt::Key_7);
    Press("TPE1", Qt::Key_Return), Open();
    for (const QLineEdit* box : boxes())
        EXPECT_TRUE(box->text() == "7" || box->text() == "0007") << box->objectName().toStdString();
    EXPECT_TRUE(boxes().size() == 32 && !At("UnicodeNote")->isVisible() &&
                Frames().starts_with(kArtist + ";") && File().Changed());
}

TEST_F(ID3V2FormTest, SteppingByKeysKeepsTheTabAndFocusesItsTextAndMarksOnlyWhatWasEdited) {
    for (const char* const focused : {"TPE1", "TPE2", "TDAT", "TBPM", "SupportList"}) {
        Press("SelectedFile", Qt::CTRL | Qt::Key_N);
        EXPECT_EQ(At("ID3V2")->window()->focusWidget(), At(focused)) << focused;
        Press("SelectedFile", Qt::CTRL | Qt::Key_B), Press("qt_tabwidget_tabbar", Qt::Key_Right);
    }
    EXPECT_EQ(Typed("TRCK", "1/x2") + Typed("TPOS", "a1/2.") + Typed("TDAT", "ab"), "121/2ab");
    EXPECT_EQ(Typed("TMED", "m") + Typed("TCON", "roc"), "mRock");
    Press("SelectedFile", Qt::CTRL | Qt::Key_N), Press("SelectedFile", Qt::CTRL | Qt::Key_N);
    EXPECT_TRUE(At("UnicodeNote")->isVisible() && File(0).Changed() && !File(1).Changed());
    EXPECT_EQ(Frames(), kArtist + ";TRCK=12;TPOS=1/2;TMED=m;TDAT=00ab;engone;gertwo;");
}

TEST_F(ID3V2FormTest, ListsOrOneCommentAndGenreAreEditedByKeysAndCancelBringsACommentBack) {
    Press("btnRemoveCOMM", Qt::Key_Space), Press("btnCancel", Qt::Key_Space);
    Open();
    for (const char* const genre : {"Own", "pop"})
        Typed("TCON", genre), Press("btnAddGL", Qt::Key_Space);
    Press("GenreList", Qt::Key_End), Press("GenreList", Qt::Key_Return), Press("COMMList", Qt::Key_Down);
    EXPECT_EQ(Typed("TCON", ""), "Pop");
    Press("btnStandard", Qt::Key_Space), Press("btnEditCOMM", Qt::Key_Space);
    Press("Comment", Qt::Key_X), Press("Comment", Qt::CTRL | Qt::Key_O);
    for (const char* const name : {"btnCOMMStandard", "SupportList", "btnOK"})
        Press(name, Qt::Key_Space);
    EXPECT_EQ(Frames(), kArtist + ";TCON=Pop" + '\0' + "Own;gerxtwo;engone;");
    EXPECT_EQ(File().ID3V2().Count(), 4U) << "without what was not checked";

    modBase::SingleCOMMGenre() = true;
    Open();
    EXPECT_TRUE(At("Frame_2")->isVisible() && !At("Frame_3")->isVisible() && !At("Frame_5")->isVisible());
    Press("TCONSingle", Qt::Key_Up), Press("TCONSingle", Qt::Key_Down);
    EXPECT_EQ(Typed("TCONSingle", ""), "Pop") << "the arrow keys go on from what the box says";
    Press("TCONSingle", Qt::CTRL | Qt::Key_A), Typed("TCONSingle", "roc"), Typed("Comment", "!");
    Press("Language", Qt::Key_Home), Press("Comment", Qt::Key_Enter);
    EXPECT_EQ(Frames(), kArtist + ";TCON=Rock;ach!xtwo;");
}

} // namespace
