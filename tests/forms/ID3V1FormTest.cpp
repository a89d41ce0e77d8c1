// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/Forms.h"
#include "app/modBase.h"
#include "editors/forms/frmID3V1.h"
#include "engine/MP3.h"
#include "mainwindow/MainWindow.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

using namespace calyvox;

namespace {

constexpr auto kCtrl = Qt::ControlModifier;
constexpr auto kDown = QEvent::KeyPress, kUp = QEvent::KeyRelease;

// The editor over three files, titles "t0" to "t2", without the main window.
struct ID3V1FormTest : testing::Test {
    ID3V1FormTest() {
        Forms::Instance().Register("frmID3V1", [] { return new frmID3V1; });
        for (const std::string number : {"0", "1", "2"})
            Files.Write(number + ".mp3", build::Audio() + build::Id3v1({"t" + number, "a\r\nb", "", "", ""}));
        modBase::ActivPath = Files.InsidePath();
        TheMainWindow().FileListRefresh();
        Open();
    }
    ~ID3V1FormTest() override { Close(); }
    static void Open() { Forms::Instance().ShowModal("frmID3V1", "frmMain"); }
    static void Close() {
        Forms::Instance().Unload("frmID3V1");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static bool IsOpen() { return Forms::Instance().IsLoaded("frmID3V1"); }
    static QWidget* At(const char* name) {
        return Forms::Instance().Touch("frmID3V1")->findChild<QWidget*>(name);
    }
    static QString Text(const char* name) { return At(name)->property("text").toString(); }
    static void Send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = {}, bool repeated = false,
                     const QString& text = {}, const char* name = "Title") {
        QKeyEvent event(type, key, modifiers, text, repeated);
        QApplication::sendEvent(At(name), &event);
    }
    static void Put(const char* name, const QString& text) {
        QTest::keyClick(At(name), Qt::Key_A, kCtrl);
        for (const QChar letter : text)
            Send(kDown, 0, {}, false, letter, name);
    }
    // The current row, "*" if it alone is selected, the title.
    std::string Click(const char* button) const {
        QTest::mouseClick(At(button), Qt::LeftButton);
        const bool alone = List.SelectedCount() == 1 && List.IsSelected(List.Current());
        return std::to_string(List.Current()) + (alone ? "*" : "") + Text("Title").toStdString();
    }
    static MP3& File(std::size_t row = 0) { return TheMainWindow().FileOf(row); }

    TempFolder Files;
    RowList& List = TheMainWindow().FileList;
};

TEST_F(ID3V1FormTest, SteppingKeepsTheEditsAndWalksAllRowsFromEndToEnd) {
    Put("Title", "new");
    EXPECT_TRUE(Click("btnBack") == "0new" && !File().Changed()) << "nothing is saved at the first row";
    EXPECT_TRUE(Click("btnNext") == "1*t1" && Click("btnBack") == "0*new" && Click("btnNext") == "1*t1");
    EXPECT_EQ(Click("btnNext"), "2*t2");
    Put("Title", "last");
    EXPECT_TRUE(Click("btnNext") == "2*last" && File().Changed() && !File(1).Changed() && !File(2).Changed());
    QTest::keyClick(At("Title"), Qt::Key_Escape);
    EXPECT_TRUE(!IsOpen() && File(0).ID3V1_Title() + File(2).ID3V1_Title() == "newt2");
}

TEST_F(ID3V1FormTest, CtrlAndALetterStepOnceWhenTheLetterIsLetGo) {
    Send(kDown, Qt::Key_N, kCtrl);
    for (const auto type : {kUp, kDown, kUp, kDown})
        Send(type, Qt::Key_N, kCtrl, true);
    EXPECT_EQ(List.Current(), 0U) << "held down";
    Send(kUp, Qt::Key_N); // Ctrl was let go first
    EXPECT_EQ(List.Current(), 1U);
    QTest::keyClick(At("Title"), Qt::Key_B, kCtrl);
    QTest::keyClick(At("Title"), Qt::Key_N, kCtrl | Qt::ShiftModifier);
    EXPECT_EQ(List.Current(), 0U);
}

TEST_F(ID3V1FormTest, DigitsAndCharactersOfThePageAloneAreTypedAndOtherPastedOnesBecomeQuestionMarks) {
    Put("Year", QStringLiteral("x19\u00B28 4\u06635"));
    Put("Title", QStringLiteral("\u20AC\u0416\u65E5\u00E9"));
    QApplication::clipboard()->setText(QStringLiteral("\u0416x\U0001F3B5"));
    QTest::keyClick(At("Album"), Qt::Key_V, kCtrl);
    EXPECT_EQ(Text("Year") + Text("Title") + Text("Album"), QStringLiteral("1984\u20AC\u00E9?x?"));
    QTest::keyClick(At("Year"), Qt::Key_Return);
    EXPECT_EQ(File().ID3V1_Title() + File().ID3V1_Album() + File().ID3V1_Year(), "\x80\xE9?x?1984");
    EXPECT_TRUE(File().ID3V1_Artist() == "a\r\nb" && !IsOpen()) << "untouched";
}

TEST_F(ID3V1FormTest, EnterPressesTheButtonThatHasTheFocusOrElseOkAndThePlaceIsKept) {
    // Where Enter is pressed, the title and the row afterwards.
    const std::pair<const char*, std::string> kCases[] = {
        {"btnCancel", "t00"}, {"Genre", "x0"}, {"btnOK", "x0"}, {"btnNext", "x1"}};
    for (const auto& [name, title] : kCases) {
        Close();
        File().SetID3V1_Title("t0");
        Open();
        Put("Title", "x");
        QTest::keyClick(At(name), Qt::Key_Return);
        EXPECT_EQ(File().ID3V1_Title() + std::to_string(List.Current()), title) << name;
        EXPECT_EQ(IsOpen(), title == "x1") << name;
    }
    At("Title")->window()->move(123, 45);
    Close();
    Open();
    EXPECT_EQ(At("Title")->window()->pos(), QPoint(123, 45));
}

} // namespace
