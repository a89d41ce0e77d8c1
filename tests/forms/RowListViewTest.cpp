// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/RowListView.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

using namespace calyvox;

namespace {

constexpr auto kCtrl = Qt::ControlModifier, kShift = Qt::ShiftModifier;
constexpr int kBlank = 11; // below the last row

class RowListViewTest : public testing::Test {
protected:
    RowListViewTest() {
        view_.resize(400, 300);
        view_.header()->setDefaultSectionSize(100);
        view_.SetRows(*model_);
        for (const char* text : {"a0", "bo1", "b 2", "bob3", "c4", "c5", "\xFC 6", "d7", "d8", "d9"})
            rows_.Add(text);
        view_.show();
        view_.EnsureVisible(0);
    }

    void AddUpTo(int count) {
        for (int i = 10; i < count; ++i)
            rows_.Add("x");
        model_->Flush();
    }
    QPoint Place(int row, int x = 20) const {
        const int height = view_.visualRect(view_.indexAt({1, 1})).height();
        return {x, row * height + height / 2};
    }
    void Press(QPoint place, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(view_.viewport(), Qt::LeftButton, modifiers, place);
    }
    void Move(QPoint place, Qt::KeyboardModifiers modifiers = {}) {
        QMouseEvent event(QEvent::MouseMove, place, view_.viewport()->mapToGlobal(place), Qt::NoButton,
                          Qt::LeftButton, modifiers);
        QApplication::sendEvent(view_.viewport(), &event);
    }
    void Click(int row, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(view_.viewport(), button, modifiers, Place(row));
    }
    template <typename... Places>
    void Drag(Qt::KeyboardModifiers modifiers, Places... places) {
        const QPoint stops[] = {places...};
        Press(stops[0], modifiers);
        for (const QPoint stop : stops)
            Move(stop, modifiers);
        QTest::mouseRelease(view_.viewport(), Qt::LeftButton, modifiers, *std::prev(std::end(stops)));
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&view_, key, modifiers); }
    void Type(const char* text, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClicks(&view_, QString::fromLatin1(text), modifiers);
    }
    // The selected rows, and the current one behind "|".
    std::string State() const {
        std::string rows;
        for (std::size_t i = 0; i < rows_.Count(); ++i)
            if (rows_.IsSelected(i)) rows += std::to_string(i);
        EXPECT_EQ(view_.currentIndex(), model_->index(static_cast<int>(rows_.Current()), 0));
        return rows + '|' + std::to_string(rows_.Current());
    }
    // Each from the first row on, with nothing selected and nothing typed.
    void Check(std::initializer_list<std::pair<std::function<void()>, std::string>> cases) {
        for (const auto& one : cases) {
            view_.QTreeView::keyboardSearch({});
            rows_.SelectAll(RowList::Flag::Off);
            rows_.SetCurrent(0);
            one.first();
            EXPECT_EQ(State(), one.second) << "case " << &one - cases.begin();
        }
    }

    RowList rows_;
    std::unique_ptr<RowListModel> model_ =
        std::make_unique<RowListModel>(rows_, QStringList{"Name", "Title", "Track"});
    RowListView view_;
    QAbstractItemModelTester tester_{model_.get()};
};

TEST_F(RowListViewTest, MouseAndKeysSelect) {
    Check({{[&] { Click(3), Click(5, kCtrl), Click(7, kCtrl), Click(5, kCtrl); }, "37|5"},
           {[&] { Click(5), Click(8, kShift), Click(3, kShift); }, "345|3"},
           {[&] { Click(1), Click(5, kCtrl), Click(7, kCtrl | kShift); }, "1567|7"},
           {[&] { Click(3), Click(5, kShift), Press(Place(4)); }, "345|4"}, // perhaps a drag
           {[&] { Click(3), Click(5, kShift), Click(4); }, "4|4"},
           {[&] { Click(3), Click(5, kShift), Click(4, {}, Qt::RightButton); }, "345|4"},
           {[&] { Click(3), Click(5, {}, Qt::RightButton); }, "5|5"},
           {[&] { Click(3), Click(kBlank); }, "|3"},
           {[&] { Click(3), Click(kBlank, kCtrl); }, "3|3"},
           {[&] { Drag({}, Place(2), Place(6), Place(4, 390)); }, "234|4"},
           {[&] { Click(0), Click(3, kCtrl), Drag(kCtrl, Place(2), Place(4)); }, "0234|4"},
           {[&] { Click(0), Click(3, kShift), Drag(kCtrl, Place(2), Place(4)); }, "01|4"},
           {[&] { Click(0), Drag({}, Place(3, 350), Place(6, 350), Place(5, 250)); }, "345|0"},
           {[&] { Click(0), Drag({}, Place(3, 350), Place(6, 320)); }, "|0"}, // beside the columns
           {[&] { Click(8), Drag(kCtrl, Place(kBlank), Place(7)); }, "79|8"}});
    Check({{[&] { Click(3), Key(Qt::Key_End, kShift), Key(Qt::Key_Up, kShift); }, "345678|8"},
           {[&] { Click(3), Key(Qt::Key_Down, kCtrl), Key(Qt::Key_Space); }, "34|4"},
           {[&] { Click(3), Key(Qt::Key_Space, kCtrl); }, "|3"},
           {[&] { Click(3), Key(Qt::Key_End, kCtrl), Key(Qt::Key_Space, kShift); }, "3456789|9"},
           {[&] { Key(Qt::Key_A, kCtrl); }, "0123456789|0"},
           {[&] { Type("b 2"); }, "2|2"},
           {[&] { Click(7), Type("C", kShift); }, "4|4"},
           {[&] { view_.keyboardSearch(QChar(0xDC)); }, "6|6"},
           {[&] { Click(5), Type("x"); }, "5|5"}});
}

TEST_F(RowListViewTest, SortingKeepsSelectionCurrentRowAndWhereARangeBegins) {
    Click(2), Click(4, kCtrl);
    rows_.Add("e");
    rows_.SetSort(0, false);
    rows_.Sort();
    EXPECT_EQ(State(), "69|6");
    Click(8, kShift);
    EXPECT_EQ(State(), "678|8");
}

TEST_F(RowListViewTest, TheProgramScrollsOnlyWhereItAsks) {
    const int page = view_.viewport()->height() / (Place(1).y() - Place(0).y());
    EXPECT_EQ(view_.VisibleRows(false), page);
    EXPECT_EQ(view_.VisibleRows(true), 10);
    AddUpTo(100);
    view_.EnsureVisible(50);
    view_.EnsureVisible(50 + static_cast<std::size_t>(page) - 1);
    view_.EnsureVisible(1000);
    rows_.SetCurrent(99);
    EXPECT_EQ(State(), "|99");
    EXPECT_EQ(view_.indexAt({1, 1}).row(), 50);
}

TEST_F(RowListViewTest, APointerThatStandsStillOutsideScrolls) {
    AddUpTo(40);
    Press(Place(0));
    Move({20, 600});
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows_.SelectedCount() == 40; }));
}

TEST_F(RowListViewTest, WhatTheUserDidIsTold) {
    std::string told;
    QObject::connect(&view_, &RowListView::UserActed, [&] { told += '.'; });
    QObject::connect(&view_, &RowListView::RowDoubleClicked, [&](int row) { told += std::to_string(row); });
    Click(4), Key(Qt::Key_F5);
    EXPECT_EQ(std::exchange(told, ""), "...");
    for (const auto& [row, button] :
         {std::pair(4, Qt::LeftButton), {4, Qt::RightButton}, {kBlank, Qt::LeftButton}}) {
        Click(row, {}, button);
        QTest::mouseDClick(view_.viewport(), button, {}, Place(row));
        told += ' ';
    }
    EXPECT_EQ(told, "..4 ... .. ");
}

TEST_F(RowListViewTest, ManyRowsArePaintedAndToldAsSelected) {
    AddUpTo(50000);
    rows_.SelectAll(RowList::Flag::On);
    for (std::size_t i = 0; i < rows_.Count(); i += 2)
        rows_.Select(i, i, RowList::Flag::Off);
    const QImage image = view_.viewport()->grab().toImage();
    EXPECT_NE(image.pixelColor(Place(4, 290)), view_.palette().color(QPalette::Highlight));
    EXPECT_EQ(image.pixelColor(Place(5, 290)), view_.palette().color(QPalette::Highlight));
    QAccessibleTableInterface& table = *QAccessible::queryAccessibleInterface(&view_)->tableInterface();
    EXPECT_EQ(table.selectedRowCount(), 25000);
    EXPECT_TRUE(table.selectRow(4) && table.cellAt(4, 1)->state().selected && rows_.IsSelected(4));
    EXPECT_EQ(table.cellAt(3, 0)->text(QAccessible::Name), "bob3");
}

TEST_F(RowListViewTest, BoxesAreToggledByClickAndSpaceAndToldAsChecked) {
    model_->SetCheckable(true);
    for (const int row : {2, 4, 9})
        QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, Place(row, 8));
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, Place(9, 8)); // two clicks
    Click(6), Key(Qt::Key_Space), Key(Qt::Key_Space);
    Click(5, kCtrl), Key(Qt::Key_End, kCtrl), Key(Qt::Key_Up, kCtrl), Key(Qt::Key_Space);
    QAccessibleTableInterface& table = *QAccessible::queryAccessibleInterface(&view_)->tableInterface();
    std::string checked;
    for (int row = 0; row < 10; ++row)
        if (table.cellAt(row, 0)->state().checked) checked += std::to_string(row);
    EXPECT_EQ(checked, "2489");
    EXPECT_EQ(State(), "56|8");
    EXPECT_FALSE(table.cellAt(2, 1)->state().checkable);
}

TEST_F(RowListViewTest, TheModelMayGoFirst) {
    Press(Place(3));
    model_.reset();
    rows_.Clear();
    Move({20, 50});
    Click(0), Key(Qt::Key_A, kCtrl);
    view_.viewport()->grab();
    EXPECT_EQ(view_.VisibleRows(true) + QAccessible::queryAccessibleInterface(&view_)->childCount(), 0);
}

} // namespace
