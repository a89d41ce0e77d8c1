// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Progress.h"
#include "app/SettingsCatalogue.h"
#include "app/forms/Forms.h"
#include "mainwindow/MainWindow.h"
#include "massops/forms/frmSearch.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

using namespace calyvox;

struct Owner : Form {
    bool Unload() override { return Forms::Instance().Unload("frmSearch"); }
    void Activated() override { ++Returns; }
    inline static int Returns = 0;
};

// The window beside a list of four rows.
struct SearchFormTest : testing::Test {
    SearchFormTest() {
        AllForms.Register("frmMain", [] { return new Owner; });
        AllForms.Register("frmSearch", [] { return new frmSearch; });
        AllForms.Show("frmMain");
        for (const char* text : {"a", "[B]lues", "\0320026085", "b"})
            List.Add(text);
        for (const auto& [row, column] : {std::pair(0U, 2U), {0, 5}, {0, 8}, {2, 1}, {2, 9}})
            List.SetCell(row, column, "blue");
        TheMainWindow().View.EnsureVisible = [this](std::size_t row) { Seen = std::to_string(row); };
        for (const char* name : {"Frags", "Eck", "Item"})
            WriteSetting(std::string("Settings\\Search") + name, "4", RegistryStore::kText);
        TheMainWindow().ShowSelectedCount();
        frmSearch::submnuSearch();
    }
    ~SearchFormTest() override {
        AllForms.Unload("frmMain");
        TheMainWindow().View = {};
        List.Clear();
    }
    Form& Window() { return *AllForms.Touch("frmSearch"); }
    void Press(const char* control, Qt::Key key = Qt::Key_Space) {
        QTest::keyClick(Window().findChild<QWidget*>(control), key);
    }
    // The selected rows, their number in the panel and in the window, and the row that came into view.
    std::string Search(const char* text) {
        frmSearch::submnuSearch();
        qobject_cast<QLineEdit*>(Window().focusWidget())->insert(QString::fromUtf8(text));
        Seen.clear(), Press("Search", Qt::Key_Return);
        std::string rows;
        for (std::size_t row = 0; row < List.Count(); ++row)
            if (List.IsSelected(row)) rows += std::to_string(row);
        const std::string number = Window().findChild<QLabel*>("Number")->text().toStdString();
        return rows + TheMainWindow().Panel(2).substr(14) + " " + number + " " + Seen;
    }

    Forms& AllForms = Forms::Instance();
    RowList& List = TheMainWindow().FileList;
    std::string Seen;
};

TEST_F(SearchFormTest, EnterSelectsWhatTheOptionsSay) {
    EXPECT_EQ(Search("b"), "13 2 2 1");
    EXPECT_EQ(Search(""), " 0 0 ");
    EXPECT_EQ(Search("\xE6\x97\xA5"), "2 1 1 2");
    Press("optTag");
    EXPECT_EQ(Search("B"), "0 1 1 0");
    Press("optBoth");
    EXPECT_EQ(Search("b"), "013 3 3 0");
    EXPECT_EQ(Search("[b]"), "1 1 1 1");
    Press("chkEckig");
    EXPECT_EQ(Search("[!BLUES]"), "012 3 3 0");
    Press("chkFrags");
    EXPECT_EQ(Search("[AB]"), "03 2 2 0");
    Press("btnGroup", Qt::Key_Return);
    EXPECT_TRUE(List.At(1).Text == "b" && List.SelectedCount() == 2);
}

TEST_F(SearchFormTest, ClosingKeepsTheOptionsAndReturnsToTheListButNotDuringAPass) {
    const auto close = [&](const auto& how) {
        frmSearch::submnuSearch();
        Owner::Returns = 0, how();
        std::string after = AllForms.IsLoaded("frmSearch") ? "open " : std::to_string(Owner::Returns) + " ";
        for (const char* name : {"Frags", "Eck", "Item"})
            after += ReadSetting(std::string("Settings\\Search") + name);
        return after;
    };
    const auto escape = [&] { Press("Search", Qt::Key_Escape); };
    EXPECT_EQ(close(escape), "1 101") << "as designed";
    frmSearch::submnuSearch();
    Press("chkFrags"), Press("chkEckig"), Press("optTag");
    EXPECT_EQ(close([&] { Press("btnClose", Qt::Key_Return); }), "1 012");
    EXPECT_EQ(close([&] { Window().close(); }), "1 012");
    auto pass = std::make_unique<Progress>(Progress::Window::None);
    EXPECT_EQ(close(escape) + Search("blue").front(), "open 012 ");
    pass.reset();
    EXPECT_EQ(close([&] { AllForms.Unload("frmMain"); }), "0 012") << "the list is going itself";
}
