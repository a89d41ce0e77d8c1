// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/RowList.h"

#include <optional>
#include <string>
#include <vector>

/// What the small lists of the editors have in common.
namespace calyvox::ListRows {

/// The current row if it is selected too, else RowList::kNone.
std::size_t SelectedRow(const RowList& rows);
/// The first row of exactly this text, RowList::kNone without one.
std::size_t Find(const RowList& rows, const std::string& text);
/// The row that slides into its place becomes current, or the last one; none is selected.
void Remove(RowList& rows, std::size_t position);
/// The row is the only selected one then.
void MoveToTop(RowList& rows, std::size_t position);

/// btnAddGL and btnAddCL: the trimmed text of the box becomes the last row. False, with nothing changed, for
/// an empty text and for one that is listed; otherwise the box is to be emptied.
bool AddNew(RowList& rows, const std::string& box);
/// btnRemoveGL. Nothing happens without a selected row.
void RemoveSelected(RowList& rows);
/// btnStandard. A selected row without text is removed; nothing happens without a selected row.
void MoveSelectedToTop(RowList& rows);

/// A box that completes what is typed: it takes the row's text, with all behind the first Typed characters
/// selected.
struct Completion {
    std::size_t Row = 0;
    std::size_t Typed = 0;
};
/// For a key of code 32 or more, typed at the end of the text or, where something is selected, over all from
/// the selection's start on. The first row that begins with what is typed then, letter case ignored.
std::optional<Completion> Complete(const std::vector<std::string>& rows, const std::string& text,
                                   std::optional<std::size_t> selectionStart, char key);

} // namespace calyvox::ListRows
