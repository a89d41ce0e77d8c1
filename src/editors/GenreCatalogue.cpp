// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/GenreCatalogue.h"

#include "app/IniFile.h"
#include "app/modBase.h"
#include "editors/GenreRows.h"
#include "engine/modID3V1.h"
#include "platform/CodePage.h"
#include "platform/PrivateProfile.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

namespace calyvox {

namespace {

constexpr const char* kGenreSection = "Genre";
constexpr const char* kOneToTwoSection = "OneToTwo";
constexpr const char* kTwoToOneSection = "TwoToOne";
// What a key that is missing reads as; it never stands in the file.
constexpr const char* kEnd = "EndOfGenreDefinition";

std::string Undefined() { return GenreName(kNoGenre); }

// "< undefined >" for what is no number or no genre's.
std::string NameOfNumber(const std::string& text) {
    std::uint8_t number = kNoGenre;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? GenreName(number) : Undefined();
}

std::uint8_t NumberOfCell(const RowList::Row& row, std::size_t column) {
    return GenreNumber(RowList::Cell(row, column));
}

// Whether a line that begins with the name would be read as the header of a section, as a comment, or as the
// key of another name.
bool IsNoKey(const std::string& name) {
    return (name.front() == '[' && name.find(']') != std::string::npos) || name.front() == ';' ||
           name.find('=') != std::string::npos;
}

template <typename Matches>
std::size_t FirstRow(const RowList& rows, const Matches& matches) {
    for (std::size_t row = 0; row < rows.Count(); ++row)
        if (matches(row)) return row;
    return RowList::kNone;
}

} // namespace

std::vector<std::string> GenreCatalogue::Names(const std::string& file) {
    std::vector<std::string> names;
    for (;;) {
        std::string name = modBase::IniRead(kGenreSection, std::to_string(names.size() + 1), kEnd, file);
        if (name == kEnd) return names;
        names.push_back(std::move(name));
    }
}

void GenreCatalogue::ReadGenres(const std::string& file) {
    const RowList::Hold hold(OwnGenre);
    OwnGenre.Clear();
    for (const std::string& name : Names(file))
        OwnGenre.Add(name).SubItems = {Undefined(),
                                       NameOfNumber(modBase::IniRead(kTwoToOneSection, name, kEnd, file))};
    for (std::uint8_t number = 0; number < kGenreCount; ++number) {
        const std::string name = modBase::IniRead(kOneToTwoSection, std::to_string(number), kEnd, file);
        const std::size_t row =
            FirstRow(OwnGenre, [&](std::size_t one) { return OwnGenre.At(one).Text == name; });
        if (row != RowList::kNone) OwnGenre.SetCell(row, kOneToTwo, GenreName(number));
    }
}

bool GenreCatalogue::WriteGenres(const std::string& file) const {
    MakeIniFolder(file);
    PrivateProfile::Batch batch(file);
    for (const char* section : {kGenreSection, kOneToTwoSection, kTwoToOneSection})
        batch.DeleteSection(section);
    for (std::size_t i = 0; i < OwnGenre.Count(); ++i) {
        const RowList::Row& row = OwnGenre.At(i);
        batch.WriteValue(kGenreSection, std::to_string(i + 1), row.Text);
        const std::uint8_t genre1 = NumberOfCell(row, kOneToTwo);
        if (genre1 != kNoGenre) batch.WriteValue(kOneToTwoSection, std::to_string(genre1), row.Text);
        if (!row.Text.empty() && !IsNoKey(row.Text))
            batch.WriteValue(kTwoToOneSection, row.Text, std::to_string(NumberOfCell(row, kTwoToOne)));
    }
    return batch.Commit();
}

GenreCatalogue::Entry GenreCatalogue::EntryOf(std::size_t row) const {
    const RowList::Row& own = OwnGenre.At(row);
    return {own.Text, GenreRowOf(NumberOfCell(own, kOneToTwo)), GenreRowOf(NumberOfCell(own, kTwoToOne))};
}

std::size_t GenreCatalogue::Add(const Entry& entry) {
    const std::string name = CodePage::Trim(entry.Name);
    if (name.empty()) return RowList::kNone;
    std::size_t target = FirstRow(OwnGenre, [&](std::size_t row) {
        return CodePage::EqualNoCase(CodePage::Trim(OwnGenre.At(row).Text), name);
    });
    const bool isNew = target == RowList::kNone;
    if (isNew) {
        target = OwnGenre.Count();
        OwnGenre.Add(name);
    } else {
        OwnGenre.SetCell(target, 0, name);
    }
    SetOneToTwo(target, isNew, GenreRows().at(entry.Genre1).Name);
    OwnGenre.SetCell(target, kTwoToOne, GenreRows().at(entry.Genre2).Name);
    return target;
}

void GenreCatalogue::SetOneToTwo(std::size_t target, bool isNew, const std::string& genre) {
    const std::size_t holder = FirstRow(OwnGenre, [&](std::size_t row) {
        return !(isNew && row == target) && RowList::Cell(OwnGenre.At(row), kOneToTwo) == genre;
    });
    if (holder == RowList::kNone)
        OwnGenre.SetCell(target, kOneToTwo, genre);
    else
        OwnGenre.SetCell(holder, kOneToTwo, Undefined());
}

void GenreCatalogue::Remove() {
    if (OwnGenre.Count() > 0) OwnGenre.Remove(OwnGenre.Current());
}

} // namespace calyvox
