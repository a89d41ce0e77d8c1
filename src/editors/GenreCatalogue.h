// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/RowList.h"

#include <cstddef>
#include <string>
#include <vector>

namespace calyvox {

/// The user's own ID3V2 genres, and the ID3V1 genres that they stand for in a transfer. In the ini file:
///
///     [Genre]       1=Own genre      running numbers without gaps, in the order of the rows
///     [OneToTwo]    17=Own genre     what becomes of an ID3V1 genre, by its number (0 to 125)
///     [TwoToOne]    Own genre=17     what becomes of an own genre; 255 for none
///
/// Files are inside paths. The tables must have been built.
class GenreCatalogue {
public:
    /// What the boxes beside the list hold; the genres are rows of GenreRows().
    struct Entry {
        std::string Name;
        std::size_t Genre1 = 0; // from 1 to 2
        std::size_t Genre2 = 0; // from 2 to 1
    };

    /// Text the own genre, columns the names of the ID3V1 genres. Column 1 is empty in a row that was never
    /// given one.
    RowList OwnGenre;
    static constexpr std::size_t kOneToTwo = 1;
    static constexpr std::size_t kTwoToOne = 2;

    /// The names alone, up to the first number that is missing.
    static std::vector<std::string> Names(const std::string& file);
    /// Fills the rows. A relation that makes no sense is "< undefined >"; of several ID3V1 genres that name
    /// one row the highest stays. A file that cannot be read has no genres.
    void ReadGenres(const std::string& file);
    /// Replaces the three sections in one step and leaves all else in the file. False if that failed.
    bool WriteGenres(const std::string& file) const;

    /// What the boxes show of a row; its ID3V1 genres are row 0 where there are none.
    Entry EntryOf(std::size_t row) const;
    /// Enters the trimmed name, or spells the row of that name anew, and returns the row; kNone, with nothing
    /// done, for a blank name. An ID3V1 genre stands in one row for 1 to 2 at most: where the first row that
    /// has it is found, be it the entered one, it is cleared there and not given, and a second call gives it.
    std::size_t Add(const Entry& entry);
    /// Removes the current row; the one that moves up becomes current.
    void Remove();

private:
    void SetOneToTwo(std::size_t target, bool isNew, const std::string& genre);
};

} // namespace calyvox
