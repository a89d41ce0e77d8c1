// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/RowList.h"

#include "platform/CodePage.h"

#include <gtest/gtest.h>

using namespace calyvox;

namespace {

using Flag = RowList::Flag;

// Rows named by capitals here are selected, the current one stands in brackets.
std::string Shown(const RowList& rows) {
    std::string texts;
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        const std::string& text = rows.At(i).Text;
        const std::string shown = rows.IsSelected(i) ? CodePage::Upper(text) : text;
        texts += rows.Current() == i ? '[' + shown + ']' : shown;
    }
    return texts;
}

void Fill(RowList& rows, const std::string& letters) {
    for (const char letter : letters)
        rows.Add(std::string(1, letter));
}

TEST(RowListTest, ClickingAColumnAgainTurnsItsOrderAndAnotherColumnBegins) {
    RowList rows;
    for (const char* text : {"z", "X", "p", "\xFE", "\xDE"}) // the last two are alike but for their case
        rows.SetSubItem(rows.Add(text), 2, text[0] == 'X' ? "" : "same");
    const std::pair<std::size_t, std::string> clicks[] = {{0, "pX[z]\xFE\xDE"}, {0, "\xFE\xDE[z]Xp"},
                                                          {2, "X\xFE\xDE[z]p"}, {2, "\xFE\xDE[z]pX"},
                                                          {1, "\xFE\xDE[z]pX"}, {0, "pX[z]\xFE\xDE"}};
    for (const auto& [column, texts] : clicks) {
        rows.SortBy(column);
        EXPECT_EQ(Shown(rows), texts) << column;
    }
    rows.Clear();
    Fill(rows, "bacBA");
    EXPECT_EQ(Shown(rows), "aA[b]Bc") << "a list stays sorted, new rows enter behind their like";
    rows.SetCell(rows.Current(), 0, "d");
    EXPECT_EQ(Shown(rows), "aABc[d]");
}

TEST(RowListTest, SelectionAndCurrentRowGoWithTheirRows) {
    RowList rows;
    Fill(rows, "dbacb");
    rows.Select(0, 0, Flag::On);
    rows.Select(2, 2, Flag::On);
    rows.SetCurrent(1);
    std::string told;
    rows.SetListener({.Reordered = [&](const std::vector<std::size_t>& old) {
        for (const std::size_t position : old)
            told += std::to_string(position);
    }});
    rows.SetSort(0, false);
    rows.Sort();
    EXPECT_EQ(Shown(rows), "Dc[b]bA");
    rows.SetSort(0, true);
    rows.Sort();
    EXPECT_EQ(Shown(rows), "A[b]bcD");
    rows.Group();
    EXPECT_EQ(Shown(rows), "AD[b]bc");
    EXPECT_EQ(told, "031424231004123");
    EXPECT_EQ(rows.SelectedCount(), 2U);
    Fill(rows, "a");
    EXPECT_EQ(Shown(rows), "AD[b]bca") << "sorted once, not kept so";
}

TEST(RowListTest, WhatChangedIsToldAndNothingButOneResetByAListOnHold) {
    std::string told;
    RowList rows;
    rows.SetListener(
        {.Changed = [&](std::size_t first, std::size_t) { told += "changed" + std::to_string(first) + ' '; },
         .Reset = [&] { told += "reset "; },
         .SelectionChanged =
             [&](std::size_t first, std::size_t last) {
                 told += "selected" + std::to_string(first) + '-' + std::to_string(last) + ' ';
             },
         .CurrentChanged = [&] { told += "current "; }});
    {
        const RowList::Hold outer(rows), inner(rows);
        Fill(rows, "abcdef");
        rows.Sort();
        rows.Select(1, 9, Flag::On);
    }
    rows.RunRange(2, 3, Flag::Flip, false);
    rows.RunRange(3, 4, Flag::Flip, false);
    rows.EndRange();
    rows.RunRange(0, 0, Flag::Off, true);
    EXPECT_EQ(Shown(rows), "[a]bcdef");
    rows.SetCurrent(2);
    rows.SetCell(1, 3, "x");
    rows.Clear();
    EXPECT_EQ(told, "reset selected2-3 selected2-4 selected1-5 current changed1 reset ");
    EXPECT_EQ(rows.SelectedCount(), 0U);
    EXPECT_THROW(rows.SetCurrent(0), std::out_of_range);
}

} // namespace
