// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/RowList.h"

#include "platform/CodePage.h"

#include <algorithm>

namespace calyvox {

const std::string& RowList::Cell(const Row& row, std::size_t column) {
    static const std::string empty;
    if (column == 0) return row.Text;
    return column <= row.SubItems.size() ? row.SubItems[column - 1] : empty;
}

bool RowList::Before(const Row& a, const Row& b) const {
    const int order = CodePage::CompareNoCase(Cell(a, sortColumn_), Cell(b, sortColumn_));
    return ascending_ ? order < 0 : order > 0;
}

RowList::Row& RowList::Add(const std::string& text) {
    auto row = std::make_unique<Row>();
    row->Text = text;
    auto at = rows_.end();
    if (sorted_)
        at = std::upper_bound(rows_.begin(), rows_.end(), row,
                              [this](const auto& a, const auto& b) { return Before(*a, *b); });
    const auto entered = rows_.insert(at, std::move(row));
    listener_.Changed(static_cast<std::size_t>(entered - rows_.begin()), rows_.size() - 1);
    return **entered;
}

// From the end: it is mostly the newest row that is asked for.
std::size_t RowList::PositionOf(const Row& row) const {
    const auto at =
        std::find_if(rows_.rbegin(), rows_.rend(), [&](const auto& one) { return one.get() == &row; });
    return static_cast<std::size_t>(rows_.rend() - at) - 1;
}

void RowList::SetSubItem(Row& row, std::size_t column, const std::string& text) {
    if (row.SubItems.size() < column) row.SubItems.resize(column);
    row.SubItems[column - 1] = text;
    const std::size_t position = PositionOf(row);
    listener_.Changed(position, position);
    if (sorted_ && column == sortColumn_) PutInOrder(position);
}

void RowList::SetBold(Row& row, bool bold) {
    row.Bold = bold;
    const std::size_t position = PositionOf(row);
    listener_.Changed(position, position);
}

void RowList::PutInOrder(std::size_t position) {
    const auto row = rows_.begin() + static_cast<std::ptrdiff_t>(position);
    const auto before = [this](const auto& a, const auto& b) { return Before(*a, *b); };
    const auto ahead = std::upper_bound(rows_.begin(), row, *row, before);
    const auto behind = std::lower_bound(row + 1, rows_.end(), *row, before);
    const auto place = [this](auto at) { return static_cast<std::size_t>(at - rows_.begin()); };
    if (ahead != row) {
        std::rotate(ahead, row, row + 1);
        listener_.Changed(place(ahead), position);
    } else if (behind != row + 1) {
        std::rotate(row, row + 1, behind);
        listener_.Changed(position, place(behind) - 1);
    }
}

void RowList::Clear() {
    rows_.clear();
    listener_.Reset();
}

void RowList::SortBy(std::size_t column) {
    ascending_ = !sorted_ || column != sortColumn_ || !ascending_;
    sortColumn_ = column;
    sorted_ = true;
    std::stable_sort(rows_.begin(), rows_.end(),
                     [this](const auto& a, const auto& b) { return Before(*a, *b); });
    listener_.Reset();
}

} // namespace calyvox
