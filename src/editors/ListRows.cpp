// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/ListRows.h"

#include "platform/CodePage.h"

#include <algorithm>

namespace calyvox::ListRows {

std::size_t SelectedRow(const RowList& rows) {
    const std::size_t current = rows.Current();
    return current < rows.Count() && rows.IsSelected(current) ? current : RowList::kNone;
}

std::size_t Find(const RowList& rows, const std::string& text) {
    for (std::size_t i = 0; i < rows.Count(); ++i)
        if (rows.At(i).Text == text) return i;
    return RowList::kNone;
}

void Remove(RowList& rows, std::size_t position) {
    rows.Remove(position);
    rows.SelectAll(RowList::Flag::Off);
    if (rows.Count() > 0) rows.SetCurrent(std::min(position, rows.Count() - 1));
}

void MoveToTop(RowList& rows, std::size_t position) {
    rows.MoveToTop(position);
    rows.SelectOnly(0, 0);
    rows.SetCurrent(0);
}

bool AddNew(RowList& rows, const std::string& box) {
    const std::string text = CodePage::Trim(box);
    if (text.empty() || Find(rows, text) != RowList::kNone) return false;
    rows.Add(text);
    return true;
}

void RemoveSelected(RowList& rows) {
    const std::size_t selected = SelectedRow(rows);
    if (selected != RowList::kNone) Remove(rows, selected);
}

void MoveSelectedToTop(RowList& rows) {
    const std::size_t selected = SelectedRow(rows);
    if (selected == RowList::kNone) return;
    if (rows.At(selected).Text.empty())
        Remove(rows, selected);
    else
        MoveToTop(rows, selected);
}

std::optional<Completion> Complete(const std::vector<std::string>& rows, const std::string& text,
                                   std::optional<std::size_t> selectionStart, char key) {
    constexpr unsigned char kFirstPrintable = 32;
    if (static_cast<unsigned char>(key) < kFirstPrintable) return std::nullopt;
    const std::string typed = text.substr(0, selectionStart.value_or(text.size())) + key;
    const auto at = std::find_if(rows.begin(), rows.end(), [&](const std::string& row) {
        return CodePage::EqualNoCase(row.substr(0, typed.size()), typed);
    });
    if (at == rows.end()) return std::nullopt;
    return Completion{static_cast<std::size_t>(at - rows.begin()), typed.size()};
}

} // namespace calyvox::ListRows
