// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/GenreRows.h"

#include "engine/modID3V1.h"
#include "platform/CodePage.h"

#include <algorithm>

namespace calyvox {

const std::vector<GenreRow>& GenreRows() {
    static const std::vector<GenreRow> rows = [] {
        std::vector<GenreRow> made = {{GenreName(kNoGenre), kNoGenre}};
        for (std::uint8_t number = 0; number < kGenreCount; ++number)
            made.push_back({GenreName(number), number});
        std::stable_sort(made.begin() + 1, made.end(), [](const GenreRow& a, const GenreRow& b) {
            return CodePage::CompareNoCase(a.Name, b.Name) < 0;
        });
        return made;
    }();
    return rows;
}

std::size_t GenreRowOf(std::uint8_t number) {
    const auto& rows = GenreRows();
    const auto at =
        std::find_if(rows.begin(), rows.end(), [=](const GenreRow& row) { return row.Number == number; });
    return at == rows.end() ? 0 : static_cast<std::size_t>(at - rows.begin());
}

} // namespace calyvox
