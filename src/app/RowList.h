// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace calyvox {

/// The rows of a list, without any window. A row has a text (column 0) and sub-items by number (columns from
/// 1 on). Rows keep their place in memory until they are removed, wherever sorting moves them. What was
/// changed is told to the listener afterwards. Columns and positions are 0-based; a position beyond the end
/// is std::out_of_range where a row is meant and is passed over where a range is.
class RowList {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    enum class Flag { Off, On, Flip };

    struct Row {
        std::string Text;
        std::vector<std::string> SubItems;
        /// Whatever ties the row to what it shows; the list does not read it.
        std::int64_t Tag = 0;
        bool Bold = false;
        bool Checked = false;
        bool Selected = false; // changed by the list alone, which counts them
    };

    /// Who draws the list.
    struct Listener {
        /// Rows from first to last say something else than before, or are new at the end.
        std::function<void(std::size_t first, std::size_t last)> Changed = [](std::size_t, std::size_t) {};
        /// Rows have gone, or all are new; selection and current row may be others too.
        std::function<void()> Reset = [] {};
        /// The same rows in another order: the row at i stood at old[i] before. The current row went along.
        std::function<void(const std::vector<std::size_t>& old)> Reordered =
            [](const std::vector<std::size_t>&) {};
        /// Among the rows from first to last are all whose Selected was changed.
        std::function<void(std::size_t first, std::size_t last)> SelectionChanged = [](std::size_t,
                                                                                       std::size_t) {};
        /// Another row is current, or the same one stands elsewhere.
        std::function<void()> CurrentChanged = [] {};
    };
    void SetListener(Listener listener) { listener_ = std::move(listener); }

    /// While one lives the listener hears nothing; at its end it hears one Reset. For filling a list.
    class Hold {
    public:
        explicit Hold(RowList& rows);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        RowList& rows_;
    };

    /// Appends, or enters in order where the list keeps itself sorted.
    Row& Add(const std::string& text);
    void Clear();
    /// The row that slides into the current one's place becomes current, or else the last one.
    void Remove(std::size_t position);
    void MoveToTop(std::size_t position) { Move(position, 0); }

    std::size_t Count() const { return rows_.size(); }
    const Row& At(std::size_t position) const { return *rows_.at(position); }
    /// Cell text; empty for a sub-item that was never set.
    static const std::string& Cell(const Row& row, std::size_t column);
    std::size_t PositionOf(const Row& row) const;

    // By row, for whoever holds one; finding its position takes a walk from the end.
    void SetSubItem(Row& row, std::size_t column, const std::string& text);
    void SetBold(Row& row, bool bold);
    // By position. Column 0 is the row's text.
    void SetCell(std::size_t position, std::size_t column, const std::string& text);
    void SetTag(std::size_t position, std::int64_t tag) { rows_.at(position)->Tag = tag; }
    void SetChecked(std::size_t position, bool checked);

    // Selection. Each of these ends a running range.
    std::size_t SelectedCount() const { return selected_; }
    bool IsSelected(std::size_t position) const;
    void Select(std::size_t first, std::size_t last, Flag flag);
    void SelectOnly(std::size_t first, std::size_t last);
    void SelectAll(Flag flag);
    /// A range that grows and shrinks (shift, drag): rows that it leaves get back what they had when it
    /// began, or nothing if it cleared the others. It runs until EndRange or any other change of selection.
    void RunRange(std::size_t first, std::size_t last, Flag flag, bool clearOthers);
    void EndRange();

    /// The row that keys act on; it stays with its row when rows move. The first row that an empty list gets
    /// becomes it; kNone in an empty list. It need not be selected.
    std::size_t Current() const { return current_; }
    void SetCurrent(std::size_t position);

    /// Column and direction of the next Sort; they stay when the rows go.
    std::size_t SortColumn() const { return sortColumn_; }
    bool Ascending() const { return ascending_; }
    void SetSort(std::size_t column, bool ascending);
    /// Sorts once, by upper-cased bytes; rows that are alike keep their order in both directions.
    void Sort();
    /// The same by one key for each row, in the rows' order.
    void SortByKeys(const std::vector<std::string>& keys);
    /// Moves the selected rows to the top; both parts keep their order.
    void Group();
    /// Sorts by the column: ascending, and the other way round at the next call for the same column. The
    /// list keeps itself sorted from then on.
    void SortBy(std::size_t column);

private:
    bool Before(const Row& a, const Row& b) const;
    void PutInOrder(std::size_t position);
    void Move(std::size_t from, std::size_t to);
    void Reorder(const std::vector<std::size_t>& old);
    void PutSelected(std::size_t position, bool selected);
    void TellSelection();
    template <typename Call, typename... Arguments>
    void Tell(const Call& call, Arguments... arguments) const {
        if (holds_ == 0) call(arguments...);
    }

    std::vector<std::unique_ptr<Row>> rows_;
    std::size_t selected_ = 0;
    std::size_t current_ = kNone;
    bool keepsSorted_ = false;
    std::size_t sortColumn_ = 0;
    bool ascending_ = true;
    int holds_ = 0;
    Listener listener_;

    // Rows whose flag was changed and not told yet.
    std::size_t changedFirst_ = kNone;
    std::size_t changedLast_ = 0;
    // The running range: what the rows had at its start, and where it stands now.
    bool running_ = false;
    bool clearedOthers_ = false;
    std::vector<bool> before_;
    std::size_t runFirst_ = kNone;
    std::size_t runLast_ = 0;
};

} // namespace calyvox
