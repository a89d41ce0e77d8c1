// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/ID3V1Exchange.h"

#include "app/modBase.h"
#include "editors/CommentList.h"
#include "editors/DateFrames.h"
#include "editors/ID3V2Fields.h"
#include "editors/LanguageList.h"
#include "editors/ListRows.h"
#include "engine/MP3.h"
#include "engine/modID3V1.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/RowCells.h"
#include "platform/CodePage.h"

#include <algorithm>
#include <optional>

namespace calyvox::ID3V1Exchange {

namespace {

constexpr const char* kDescriptor = "ID3V1-Comment";

void SetUnlessEmpty(ID3V2Fields& fields, const std::string& control, const std::string& text) {
    if (!text.empty()) fields.SetText(control, text);
}

void RemoveRow(RowList& rows, const std::string& text) {
    const std::size_t position = ListRows::Find(rows, text);
    if (position != RowList::kNone) ListRows::Remove(rows, position);
}

// The genre moves to the end.
void ImportGenre(RowList& genres, const MP3& file) {
    RemoveRow(genres, CodePage::Trim(file.ID3V1_GenreText()));
    genres.Add(file.ID3V1_GenreText());
    while (ListRows::Find(genres, GenreName(kNoGenre)) != RowList::kNone)
        RemoveRow(genres, GenreName(kNoGenre));
}

void ImportComment(ID3V2Fields& fields, const MP3& file) {
    if (file.ID3V1_Comment().empty()) return;
    RemoveRow(fields.COMMList, kDescriptor);
    CommentList::AddRow(fields.COMMList, kDescriptor, LanguageCode(fields.Language), file.ID3V1_Comment());
}

void ImportSingle(int button, const MP3& file, ID3V2Fields& fields) {
    if (button == SingleGenre && file.ID3V1_GenreText() != GenreName(kNoGenre))
        fields.SetText("TCONSingle", file.ID3V1_GenreText());
    if (button == SingleComment && !file.ID3V1_Comment().empty()) {
        fields.SetText("Comment", file.ID3V1_Comment());
        fields.SetText("Descriptor", kDescriptor);
    }
}

using Getter = const std::string& (MP3::*)() const;
using Setter = void (MP3::*)(const std::string&);

bool ExportText(const std::string& text, std::size_t length, MP3& file, Getter get, Setter set) {
    const std::string cut = CodePage::Trim(text).substr(0, length);
    if (cut == (file.*get)()) return false;
    (file.*set)(cut);
    return true;
}

bool ExportTrack(const std::string& text, MP3& file) {
    if (CodePage::LeadingNumber(text) == file.ID3V1_Track()) return false;
    file.SetID3V1_Track(CodePage::LeadingByte(text));
    return true;
}

// By its name, or by its name without blanks.
bool ExportGenre(const std::string& name, MP3& file) {
    std::string genre = CodePage::Trim(name);
    std::uint8_t number = GenreNumber(genre);
    if (number == kNoGenre) {
        std::erase(genre, ' ');
        number = GenreNumber(genre);
    }
    if (number == file.ID3V1_Genre()) return false;
    file.SetID3V1_Genre(number);
    return true;
}

std::optional<std::string> GenreOf(const ID3V2Fields& fields) {
    if (modBase::SingleCOMMGenre()) return fields.Text("TCONSingle");
    if (fields.GenreList.Count() == 0) return std::nullopt;
    return fields.GenreList.At(0).Text;
}

std::optional<std::string> CommentOf(const ID3V2Fields& fields) {
    if (modBase::SingleCOMMGenre()) return fields.Text("Comment");
    if (fields.COMMList.Count() == 0) return std::nullopt;
    return RowList::Cell(fields.COMMList.At(0), CommentList::kComment);
}

bool ExportFields(const ID3V2Fields& fields, MP3& file) {
    constexpr std::size_t kLong = 30;
    constexpr std::size_t kYearLength = 4;
    constexpr std::size_t kCommentLength = 28;
    bool changed = ExportText(fields.Text("TPE1"), kLong, file, &MP3::ID3V1_Artist, &MP3::SetID3V1_Artist);
    changed |= ExportText(fields.Text("TIT2"), kLong, file, &MP3::ID3V1_Title, &MP3::SetID3V1_Title);
    changed |= ExportText(fields.Text("TALB"), kLong, file, &MP3::ID3V1_Album, &MP3::SetID3V1_Album);
    changed |= ExportTrack(fields.Text("TRCK"), file);
    changed |= ExportText(fields.Text("TYER"), kYearLength, file, &MP3::ID3V1_Year, &MP3::SetID3V1_Year);
    if (const auto genre = GenreOf(fields)) changed |= ExportGenre(*genre, file);
    if (const auto comment = CommentOf(fields))
        changed |= ExportText(*comment, kCommentLength, file, &MP3::ID3V1_Comment, &MP3::SetID3V1_Comment);
    return changed;
}

} // namespace

void ID3V1_Click(int button, const MP3& file, ID3V2Fields& fields) {
    if (!file.ID3V1_Present()) return;
    switch (button) {
    case Artist:
        return SetUnlessEmpty(fields, "TPE1", file.ID3V1_Artist());
    case Title:
        return SetUnlessEmpty(fields, "TIT2", file.ID3V1_Title());
    case Album:
        return SetUnlessEmpty(fields, "TALB", file.ID3V1_Album());
    case Track:
        if (file.ID3V1_Track() != 0) fields.SetText("TRCK", std::to_string(file.ID3V1_Track()));
        return;
    case Year:
        return SetUnlessEmpty(fields, "TYER", DateFrames::PaddedOrEmpty(file.ID3V1_Year()));
    case Genres:
        return ImportGenre(fields.GenreList, file);
    case Comments:
        return ImportComment(fields, file);
    default:
        return ImportSingle(button, file, fields);
    }
}

void btnImport_Click(const MP3& file, ID3V2Fields& fields) {
    for (int button = Artist; button <= Comments; ++button)
        ID3V1_Click(button, file, fields);
}

void btnExport_Click(const ID3V2Fields& fields, MainWindow& window, std::size_t row) {
    constexpr std::uint8_t kTwoDigits = 10;
    MP3& file = window.FileOf(row);
    if (!ExportFields(fields, file)) return;
    file.SetID3V1_Present(true);
    window.FileList.SetCell(row, RowCells::kID3V1, "Yes");
    if (modBase::VerShow == 1) {
        auto cells = RowCells::ID3V1Cells(file);
        if (file.ID3V1_Track() < kTwoDigits) cells.back().insert(0, "0");
        std::size_t column = RowCells::kArtist;
        for (const std::string& cell : cells)
            window.FileList.SetCell(row, column++, cell);
    }
    window.FileList.SetCell(row, RowCells::kChanged, "Y");
    file.SetChanged(true);
}

} // namespace calyvox::ID3V1Exchange
