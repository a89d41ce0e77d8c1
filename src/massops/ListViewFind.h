// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/RowList.h"
#include "massops/LikeCompareText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace calyvox {

enum class SearchScope { Filename = 1, TagEntries = 2, Both = 3 };

struct SearchOptions {
    bool Fragments = true; // the text may stand anywhere
    bool Brackets = false; // "[" and "]" begin and end a list
    SearchScope Scope = SearchScope::Filename;
};

/// The pattern for a text that the user searches for.
std::string SearchPattern(std::string_view text, const SearchOptions& options);

/// The positions of the file list's rows that match the pattern in what they show, in list order; a row
/// stands there once for each cell that matches.
std::vector<std::size_t> FindListItems(const RowList& rows, std::string_view pattern, SearchScope scope,
                                       CompareMode mode);

} // namespace calyvox
