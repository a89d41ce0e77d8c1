// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "massops/ListViewFind.h"

#include "mainwindow/RowCells.h"

namespace calyvox {

namespace {

std::string PlainBrackets(std::string_view text) {
    std::string plain;
    for (const char c : text)
        if (c == '[' || c == ']')
            plain.append("[").append(1, c).append("]");
        else
            plain += c;
    return plain;
}

} // namespace

std::string SearchPattern(std::string_view text, const SearchOptions& options) {
    const std::string pattern = options.Brackets ? std::string(text) : PlainBrackets(text);
    return options.Fragments ? "*" + pattern + "*" : pattern;
}

std::vector<std::size_t> FindListItems(const RowList& rows, std::string_view pattern, SearchScope scope,
                                       CompareMode mode) {
    const LikePattern like(pattern, mode);
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        const RowList::Row& row = rows.At(i);
        if (scope != SearchScope::TagEntries && like.Matches(row.Text)) found.push_back(i);
        if (scope == SearchScope::Filename) continue;
        for (std::size_t column = RowCells::kArtist; column <= RowCells::kTrack; ++column)
            if (like.Matches(RowList::Cell(row, column))) found.push_back(i);
    }
    return found;
}

} // namespace calyvox
