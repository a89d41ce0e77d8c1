// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/RowList.h"

#include "platform/CodePage.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace calyvox {

namespace {

bool Resulting(RowList::Flag flag, bool before) {
    return flag == RowList::Flag::Flip ? !before : flag == RowList::Flag::On;
}

} // namespace

RowList::Hold::Hold(RowList& rows) : rows_(rows) { ++rows_.holds_; }

RowList::Hold::~Hold() {
    if (--rows_.holds_ == 0) rows_.listener_.Reset();
}

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
    EndRange();
    auto row = std::make_unique<Row>();
    row->Text = text;
    auto at = rows_.end();
    if (keepsSorted_)
        at = std::upper_bound(rows_.begin(), rows_.end(), row,
                              [this](const auto& a, const auto& b) { return Before(*a, *b); });
    const auto position = static_cast<std::size_t>(at - rows_.begin());
    Row& entered = **rows_.insert(at, std::move(row));
    const bool moves = current_ == kNone || position <= current_;
    if (moves) current_ = current_ == kNone ? 0 : current_ + 1;
    Tell(listener_.Changed, position, rows_.size() - 1);
    if (moves) Tell(listener_.CurrentChanged);
    return entered;
}

void RowList::Clear() {
    EndRange();
    rows_.clear();
    selected_ = 0;
    current_ = kNone;
    Tell(listener_.Reset);
}

void RowList::Remove(std::size_t position) {
    EndRange();
    if (rows_.at(position)->Selected) --selected_;
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(position));
    if (position < current_) --current_;
    if (current_ >= rows_.size()) current_ = rows_.empty() ? kNone : rows_.size() - 1;
    Tell(listener_.Reset);
}

// From the end: it is mostly the newest row that is asked for.
std::size_t RowList::PositionOf(const Row& row) const {
    const auto at =
        std::find_if(rows_.rbegin(), rows_.rend(), [&](const auto& one) { return one.get() == &row; });
    return static_cast<std::size_t>(rows_.rend() - at) - 1;
}

void RowList::SetSubItem(Row& row, std::size_t column, const std::string& text) {
    SetCell(PositionOf(row), column, text);
}

void RowList::SetBold(Row& row, bool bold) {
    row.Bold = bold;
    const std::size_t position = PositionOf(row);
    Tell(listener_.Changed, position, position);
}

void RowList::SetCell(std::size_t position, std::size_t column, const std::string& text) {
    Row& row = *rows_.at(position);
    if (row.SubItems.size() < column) row.SubItems.resize(column);
    (column == 0 ? row.Text : row.SubItems[column - 1]) = text;
    Tell(listener_.Changed, position, position);
    if (keepsSorted_ && column == sortColumn_) PutInOrder(position);
}

void RowList::SetChecked(std::size_t position, bool checked) {
    rows_.at(position)->Checked = checked;
    Tell(listener_.Changed, position, position);
}

bool RowList::IsSelected(std::size_t position) const { return rows_.at(position)->Selected; }

void RowList::PutSelected(std::size_t position, bool selected) {
    Row& row = *rows_[position];
    if (row.Selected == selected) return;
    row.Selected = selected;
    selected ? ++selected_ : --selected_;
    changedFirst_ = std::min(changedFirst_, position);
    changedLast_ = std::max(changedLast_, position);
}

void RowList::TellSelection() {
    const std::size_t first = std::exchange(changedFirst_, kNone);
    const std::size_t last = std::exchange(changedLast_, 0);
    if (first <= last) Tell(listener_.SelectionChanged, first, last);
}

void RowList::Select(std::size_t first, std::size_t last, Flag flag) {
    EndRange();
    for (std::size_t i = first; i < rows_.size() && i <= last; ++i)
        PutSelected(i, Resulting(flag, rows_[i]->Selected));
    TellSelection();
}

void RowList::SelectOnly(std::size_t first, std::size_t last) {
    EndRange();
    for (std::size_t i = 0; i < rows_.size(); ++i)
        PutSelected(i, i >= first && i <= last);
    TellSelection();
}

void RowList::SelectAll(Flag flag) { Select(0, kNone, flag); }

void RowList::RunRange(std::size_t first, std::size_t last, Flag flag, bool clearOthers) {
    if (!running_) {
        before_.resize(rows_.size());
        for (std::size_t i = 0; i < rows_.size(); ++i)
            before_[i] = rows_[i]->Selected;
        running_ = true;
    }
    if (clearOthers && !clearedOthers_) {
        before_.assign(rows_.size(), false);
        runFirst_ = 0; // every row is left or stays in the range
        runLast_ = kNone;
        clearedOthers_ = true;
    }
    for (std::size_t i = runFirst_; i < rows_.size() && i <= runLast_; ++i)
        if (i < first || i > last) PutSelected(i, before_[i]);
    for (std::size_t i = first; i < rows_.size() && i <= last; ++i)
        PutSelected(i, Resulting(flag, before_[i]));
    runFirst_ = first;
    runLast_ = last;
    TellSelection();
}

void RowList::EndRange() {
    running_ = false;
    clearedOthers_ = false;
    runFirst_ = kNone;
    runLast_ = 0;
}

void RowList::SetCurrent(std::size_t position) {
    if (position >= rows_.size()) throw std::out_of_range("RowList::SetCurrent");
    if (position == current_) return;
    current_ = position;
    Tell(listener_.CurrentChanged);
}

void RowList::PutInOrder(std::size_t position) {
    const auto row = rows_.begin() + static_cast<std::ptrdiff_t>(position);
    const auto before = [this](const auto& a, const auto& b) { return Before(*a, *b); };
    const auto ahead = std::upper_bound(rows_.begin(), row, *row, before);
    const auto behind = std::lower_bound(row + 1, rows_.end(), *row, before);
    const auto place = [this](auto at) { return static_cast<std::size_t>(at - rows_.begin()); };
    if (ahead != row)
        Move(position, place(ahead));
    else if (behind != row + 1)
        Move(position, place(behind) - 1);
}

void RowList::Move(std::size_t from, std::size_t to) {
    EndRange();
    const auto at = [this](std::size_t i) { return rows_.begin() + static_cast<std::ptrdiff_t>(i); };
    const std::size_t was = current_;
    if (from > to) {
        std::rotate(at(to), at(from), at(from + 1));
        if (current_ >= to && current_ < from) ++current_;
    } else {
        std::rotate(at(from), at(from + 1), at(to + 1));
        if (current_ > from && current_ <= to) --current_;
    }
    if (was == from) current_ = to;
    Tell(listener_.Changed, std::min(from, to), std::max(from, to));
    if (current_ != was) Tell(listener_.CurrentChanged);
}

void RowList::Reorder(const std::vector<std::size_t>& old) {
    EndRange();
    std::vector<std::unique_ptr<Row>> rows;
    rows.reserve(rows_.size());
    for (const std::size_t position : old)
        rows.push_back(std::move(rows_[position]));
    rows_ = std::move(rows);
    if (current_ != kNone)
        current_ = static_cast<std::size_t>(std::find(old.begin(), old.end(), current_) - old.begin());
    Tell(listener_.Reordered, std::cref(old));
}

void RowList::SetSort(std::size_t column, bool ascending) {
    sortColumn_ = column;
    ascending_ = ascending;
}

void RowList::Sort() {
    std::vector<std::string> keys;
    keys.reserve(rows_.size());
    for (const auto& row : rows_)
        keys.push_back(CodePage::Upper(Cell(*row, sortColumn_)));
    SortByKeys(keys);
}

void RowList::SortByKeys(const std::vector<std::string>& keys) {
    std::vector<std::size_t> old(rows_.size());
    std::iota(old.begin(), old.end(), std::size_t{0});
    std::stable_sort(old.begin(), old.end(), [&](std::size_t a, std::size_t b) {
        return ascending_ ? keys[a] < keys[b] : keys[b] < keys[a];
    });
    Reorder(old);
}

void RowList::SortBy(std::size_t column) {
    SetSort(column, !keepsSorted_ || column != sortColumn_ || !ascending_);
    keepsSorted_ = true;
    Sort();
}

void RowList::Group() {
    std::vector<std::size_t> old(rows_.size());
    std::iota(old.begin(), old.end(), std::size_t{0});
    std::stable_partition(old.begin(), old.end(), [this](std::size_t i) { return rows_[i]->Selected; });
    Reorder(old);
}

} // namespace calyvox
