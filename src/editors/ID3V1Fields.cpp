// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/ID3V1Fields.h"

#include "app/modBase.h"
#include "editors/GenreRows.h"
#include "engine/MP3.h"
#include "engine/modID3V1.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/RowCells.h"
#include "platform/CodePage.h"

#include <algorithm>
#include <limits>

namespace calyvox {

ID3V1Fields ID3V1Fields::LoadTag(const MP3& file) {
    ID3V1Fields fields;
    if (!file.ID3V1_Present()) return fields;
    fields.Artist = file.ID3V1_Artist();
    fields.Title = file.ID3V1_Title();
    fields.Album = file.ID3V1_Album();
    fields.Year = file.ID3V1_Year();
    fields.Comment = file.ID3V1_Comment();
    if (file.ID3V1_Track() != 0) fields.Track = std::to_string(file.ID3V1_Track());
    fields.Genre = GenreRowOf(file.ID3V1_Genre());
    return fields;
}

ID3V1Fields ID3V1Fields::Trimmed() const {
    ID3V1Fields trimmed = *this;
    for (std::string* text :
         {&trimmed.Artist, &trimmed.Title, &trimmed.Album, &trimmed.Track, &trimmed.Year, &trimmed.Comment})
        *text = CodePage::Trim(*text);
    return trimmed;
}

// The digits that the text begins with; whatever was pasted, a byte comes of it.
std::uint8_t ID3V1Fields::TrackNumber() const {
    const auto end = std::find_if(Track.begin(), Track.end(), [](char c) { return c < '0' || c > '9'; });
    const double number = CodePage::LeadingNumber(std::string(Track.begin(), end));
    return static_cast<std::uint8_t>(std::min<double>(number, std::numeric_limits<std::uint8_t>::max()));
}

std::uint8_t ID3V1Fields::GenreNumber() const {
    return Genre < GenreRows().size() ? GenreRows()[Genre].Number : kNoGenre;
}

bool ID3V1Fields::SaysTheSameAs(const MP3& file) const {
    return Artist == file.ID3V1_Artist() && Title == file.ID3V1_Title() && Album == file.ID3V1_Album() &&
           Year == file.ID3V1_Year() && Comment == file.ID3V1_Comment() &&
           TrackNumber() == file.ID3V1_Track() && GenreNumber() == file.ID3V1_Genre();
}

void ID3V1Fields::SaveTag(MainWindow& window, std::size_t row) const {
    const ID3V1Fields fields = Trimmed();
    MP3& file = window.FileOf(row);
    if (fields.SaysTheSameAs(file)) return;
    file.SetID3V1_Present(true);
    file.SetID3V1_Artist(fields.Artist);
    file.SetID3V1_Title(fields.Title);
    file.SetID3V1_Album(fields.Album);
    file.SetID3V1_Year(fields.Year);
    file.SetID3V1_Comment(fields.Comment);
    file.SetID3V1_Genre(fields.GenreNumber());
    file.SetID3V1_Track(fields.TrackNumber());
    window.FileList.SetCell(row, RowCells::kID3V1, "Yes");
    if (modBase::VerShow == 1) {
        std::size_t column = RowCells::kArtist;
        for (const std::string& cell : RowCells::ID3V1Cells(file))
            window.FileList.SetCell(row, column++, cell);
    }
    window.FileList.SetCell(row, RowCells::kChanged, "Y");
    file.SetChanged(true);
}

} // namespace calyvox
