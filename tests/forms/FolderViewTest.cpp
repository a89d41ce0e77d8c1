// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/FolderView.h"

#include "platform/HostPath.h"
#include "support/TempFolder.h"

#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>

using namespace calyvox;
using std::filesystem::create_directories, std::filesystem::remove_all;

namespace {

// A view on a folder with a\a1, b\b1 and c, open and current. The log has questions as "?", signals as "!".
struct FolderViewTest : testing::Test {
    FolderViewTest() {
        for (const char* name : {"a/a1", "b/b1", "c"})
            create_directories(Folder.Host(name));
        View.SetBeforeChange([&](const std::string& path) { return Log += "?" + Short(path), Question(); });
        QObject::connect(&View, &FolderView::Changed, [&](const auto& path) { Log += "!" + Short(path); });
        View.SelectPath(Top);
        TopIndex = View.currentIndex();
        View.expand(TopIndex);
        View.show();
    }
    std::string Short(const std::string& path) const {
        return path == Top ? "^" : path.substr(Top.size() + 1);
    }
    QModelIndex Row(int row) const { return View.model()->index(row, 0, TopIndex); }
    std::string Names(const QModelIndex& index) const {
        std::string names;
        for (int row = 0; row < View.model()->rowCount(index); ++row)
            names += View.model()->index(row, 0, index).data().toString().toStdString() + " ";
        return names;
    }
    void Click(const QModelIndex& index, int left = 5, Qt::MouseButton button = Qt::LeftButton) {
        View.scrollTo(index);
        QTest::mouseClick(View.viewport(), button, {}, View.visualRect(index).topLeft() + QPoint(left, 5));
    }
    std::string Told() { // the log, and where the view is
        QCoreApplication::processEvents();
        return std::exchange(Log, {}) + "@" + Short(View.Path());
    }

    const TempFolder Folder;
    const std::string Top = Folder.InsidePath();
    FolderView View;
    QPersistentModelIndex TopIndex;
    std::string Log;
    std::function<bool()> Question = [] { return true; };
};

TEST_F(FolderViewTest, AFolderIsReadWhenOpenedAndAgainAtRefreshAlone) {
    for (const char* name : {"b/_", "b/x", "b/Y", "b/.z", "d"})
        create_directories(Folder.Host(name));
    View.expand(Row(1));
    View.expand(Row(2));
    EXPECT_EQ(Names(TopIndex) + Names(Row(1)), "a b c .z b1 x Y _ ");
    EXPECT_FALSE(View.model()->hasChildren(Row(2))) << "nothing in it";
    View.SelectPath(Top + "\\a");
    View.resize(200, 60);
    View.scrollTo(Row(1), FolderView::PositionAtTop);
    remove_all(Folder.Host("a"));
    View.Refresh();
    EXPECT_EQ(Names(TopIndex) + Told(), "b c d @^");
    EXPECT_TRUE(View.isExpanded(Row(0)) && View.visualRect(Row(0)).top() == 0);
}

TEST_F(FolderViewTest, EveryHostNameCanBeReachedAndWhatIsGoneGoes) {
    for (const char* name : {"z:*?", "z\xFF", "z\xE6\x97\xA5", "z\\n", "z <b>"}) {
        const std::string inside = HostPath::FromHost(name);
        EXPECT_FALSE(View.SelectPath(Top + "\\" + inside + "\\x") || Told() != "@^") << "deepest on the way";
        create_directories(Folder.Host(name));
        EXPECT_TRUE(View.SelectPath(Top + "\\" + inside + "\\") && Told() == "@" + inside) << name;
        View.SelectPath(Top + "\\b");
        Click(Row(3));
        EXPECT_EQ(Told(), "?" + inside + "!" + inside + "@" + inside);
        remove_all(Folder.Host(name));
    }
    remove_all(Folder.Host("b"));
    Click(Row(1));
    EXPECT_EQ(Told(), "@^") << "the current one goes too";
    Question = [&] { return remove_all(Folder.Host("c")) > 0; };
    Click(Row(1));
    EXPECT_EQ(Told(), "?c@^");
    EXPECT_EQ(Names(TopIndex), "a ");
}

TEST_F(FolderViewTest, WhatTheUserDoesIsAskedOnceAndMovesOnYesAlone) {
    // A wish from "a\a1"; an empty one is none.
    const std::pair<std::string, std::function<void()>> kCases[] = {
        {"b", [&] { Click(Row(1)); }},
        {"b", [&] { QTest::keyClick(&View, Qt::Key_Down); }},
        {"c", [&] { View.selectionModel()->select(Row(2), QItemSelectionModel::Select); }},
        {"a", [&] { QTest::keyClick(&View, Qt::Key_Left); }},
        {"a", [&] { Click(Row(0), -5); }}, // closes what the current folder is in
        {"", [&] { Click(View.currentIndex()); }},
        {"", [&] { Click(Row(1), 5, Qt::RightButton); }},
        {"", [&] { Click(Row(1), -5); }}};
    for (const auto& [name, wish] : kCases)
        for (const bool yes : {false, true}) {
            View.SelectPath(Top + "\\a\\a1");
            Question = [yes] { return yes; };
            wish();
            EXPECT_EQ(Log + Short(View.Path()), "a\\a1") << "not at once";
            const std::string asked = name.empty() ? "" : "?" + name;
            EXPECT_EQ(Told(), asked + (yes && !name.empty() ? "!" + name + "@" + name : "@a\\a1"));
        }
}

TEST_F(FolderViewTest, TheQuestionMayRunEventsAndMoveTheViewAndEndIt) {
    Question = [&] {
        View.SelectPath(Top + "\\a\\a1");
        Click(Row(2));
        View.Refresh();
        return Told() == "?b@a\\a1";
    };
    Click(Row(1));
    EXPECT_EQ(Told(), "!b@b");
    Question = [] { return true; };
    Click(Row(2));
    EXPECT_EQ(Told(), "?c!c@c");
    auto view = std::make_unique<FolderView>();
    view->SelectPath(Top);
    view->setCurrentIndex(view->model()->index(0, 0));
    view->SetBeforeChange([&](const std::string&) { return view.reset(), true; });
    EXPECT_TRUE(Told() == "@c" && !view);
}

} // namespace
