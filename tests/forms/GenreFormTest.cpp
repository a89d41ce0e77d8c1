// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/IniFile.h"
#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/forms/Forms.h"
#include "app/forms/RowListView.h"
#include "editors/forms/frmID3V2Genre.h"
#include "support/FailingCalls.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

using namespace calyvox;

static Form& Window() { return *Forms::Instance().Touch("frmID3V2Genre"); }
static QWidget* At(const char* name) { return Window().findChild<QWidget*>(name); }
static void Press(const char* name, Qt::Key key) { QTest::keyClick(At(name), key); }
// The boxes, the current row, the number of selected ones and that of all.
static std::string State() {
    const RowList& rows = *qobject_cast<RowListView*>(At("OwnGenre"))->Rows();
    std::string state = At("NewGenre")->property("text").toString().toStdString() + "|";
    state += At("Genre2")->property("currentText").toString().toStdString() + "|";
    return state + std::to_string(100 * rows.Current() + 10 * rows.SelectedCount() + rows.Count());
}

TEST(GenreFormTest, TheBoxesFollowTheListAndClosingAlwaysWrites) {
    std::string told;
    const Services saved = std::exchange(TheServices(), {});
    TheServices().MessageBox = [&](const auto& text, auto...) { return told += text, MsgBox::kOk; };
    Forms::Instance().Register("frmID3V2Genre", [] { return new frmID3V2Genre; });
    Forms::Instance().ShowModal("frmID3V2Genre", "frmMain");
    QTest::keyClicks(At("Genre2"), "rock");
    for (const Qt::Key key : {Qt::Key_B, Qt::Key_C, Qt::Key_D})
        Press("NewGenre", key), Press("NewGenre", Qt::Key_Return);
    EXPECT_EQ(State(), "|< undefined >|13");
    Press("OwnGenre", Qt::Key_Down), Press("OwnGenre", Qt::Key_Up);
    EXPECT_EQ(State(), "b|Rock|13");
    Press("NewGenre", Qt::Key_X), QTest::keyClick(At("OwnGenre"), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(State(), "bx|Rock|13") << "what is typed stays while the row does";
    At("OwnGenre")->setFocus(), Press("OwnGenre", Qt::Key_Return);
    EXPECT_TRUE(State() == "b|Rock|13" && Window().focusWidget() == At("NewGenre"));
    Press("btnRemove", Qt::Key_Return), Press("chkOnly", Qt::Key_Space), Press("chkOnly", Qt::Key_Escape);
    EXPECT_EQ(GenreCatalogue::Names(IniFilePath()), (std::vector<std::string>{"c", "d"}));
    EXPECT_EQ(State() + told + At("chkOnly")->property("checked").toString().toStdString(),
              "|< undefined >|12true")
        << "opened anew";
    Press("btnRemove", Qt::Key_Space);
    const FailingCalls failing(HostCalls::Call::Rename, 1, EACCES);
    Press("btnClose", Qt::Key_Space);
    EXPECT_TRUE(told.ends_with(IniFilePath()) && !Forms::Instance().IsLoaded("frmID3V2Genre"));
    TheServices() = saved;
}
