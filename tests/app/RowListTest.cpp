// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/RowList.h"

#include <gtest/gtest.h>

using namespace calyvox;

namespace {

std::string Texts(const RowList& rows) {
    std::string texts;
    for (std::size_t i = 0; i < rows.Count(); ++i)
        texts += rows.At(i).Text;
    return texts;
}

TEST(RowListTest, ClickingAColumnAgainTurnsItsOrderAndAnotherColumnBegins) {
    RowList rows;
    for (const char* text : {"z", "X", "p", "\xFE", "\xDE"}) // the last two are alike but for their case
        rows.SetSubItem(rows.Add(text), 2, text[0] == 'X' ? "" : "same");
    const std::pair<std::size_t, std::string> clicks[] = {{0, "pXz\xFE\xDE"}, {0, "\xFE\xDEzXp"},
                                                          {2, "X\xFE\xDEzp"}, {2, "\xFE\xDEzpX"},
                                                          {1, "\xFE\xDEzpX"}, {0, "pXz\xFE\xDE"}};
    for (const auto& [column, texts] : clicks) {
        rows.SortBy(column);
        EXPECT_EQ(Texts(rows), texts) << column;
    }
    rows.Clear();
    for (const char* text : {"b", "a", "c", "B", "A"})
        rows.Add(text);
    EXPECT_EQ(Texts(rows), "aAbBc") << "a list stays sorted, new rows enter behind their like";
}

} // namespace
