// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace calyvox {

/// The rows of a list. A row has a text (column 0) and sub-items by number (columns from 1 on). Rows keep
/// their place in memory until the list is cleared, wherever sorting moves them. Every change is told to the
/// listener, after it was made. Columns and positions are 0-based.
class RowList {
public:
    struct Row {
        std::string Text;
        std::vector<std::string> SubItems;
        bool Bold = false;
    };

    /// Who draws the list. Rows never go but by Reset.
    struct Listener {
        /// Rows from first to last say something else than before, or are new at the end.
        std::function<void(std::size_t first, std::size_t last)> Changed = [](std::size_t, std::size_t) {};
        /// All rows have gone, or stand in another order.
        std::function<void()> Reset = [] {};
    };

    /// Appends, or enters in order where the list is sorted.
    Row& Add(const std::string& text);
    void SetSubItem(Row& row, std::size_t column, const std::string& text);
    void SetBold(Row& row, bool bold);
    void Clear();

    std::size_t Count() const { return rows_.size(); }
    const Row& At(std::size_t position) const { return *rows_.at(position); }
    /// Cell text; empty for a sub-item that was never set.
    static const std::string& Cell(const Row& row, std::size_t column);
    std::size_t PositionOf(const Row& row) const;

    /// Sorts by the column, upper-cased bytes, stable: ascending, and the other way round at the next call
    /// for the same column. The list stays sorted from then on.
    void SortBy(std::size_t column);
    bool Sorted() const { return sorted_; }
    std::size_t SortColumn() const { return sortColumn_; }
    bool Ascending() const { return ascending_; }

    void SetListener(Listener listener) { listener_ = std::move(listener); }

private:
    bool Before(const Row& a, const Row& b) const;
    void PutInOrder(std::size_t position);

    std::vector<std::unique_ptr<Row>> rows_;
    bool sorted_ = false;
    std::size_t sortColumn_ = 0;
    bool ascending_ = true;
    Listener listener_;
};

} // namespace calyvox
