// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/ID3V1.h"

#include "engine/MP3File.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"

#include <string_view>

namespace calyvox {

namespace {

constexpr std::string_view kIdentifier = "TAG";

struct Field {
    std::size_t Offset;
    std::size_t Width;
};
constexpr Field kTitle{3, 30};
constexpr Field kArtist{33, 30};
constexpr Field kAlbum{63, 30};
constexpr Field kYear{93, 4};
constexpr Field kComment{97, 28};
constexpr std::size_t kZeroByte = 125;
constexpr std::size_t kTrack = 126;
constexpr std::size_t kGenre = 127;

std::string ReadField(std::string_view record, Field field) {
    std::string text = CodePage::Trim(record.substr(field.Offset, field.Width));
    return CodePage::Trim(text.substr(0, text.find('\0')));
}

std::string Padded(const std::string& text, Field field) {
    std::string result = CodePage::Trim(text);
    result.resize(field.Width, '\0');
    return result;
}

} // namespace

bool ID3V1::GetTag(MP3File& file) {
    try {
        file.SetFilePos(file.FileLen() - (kLength - 1));
        const std::string record = file.Read(kLength);
        if (CodePage::Upper(record.substr(0, kIdentifier.size())) == kIdentifier) present_ = true;
        if (present_)
            Parse(record);
        else
            Clear();
        return true;
    } catch (const Failure&) {
        file.CloseFile();
        return false;
    }
}

void ID3V1::Parse(const std::string& record) {
    identifier_ = kIdentifier;
    title_ = ReadField(record, kTitle);
    artist_ = ReadField(record, kArtist);
    album_ = ReadField(record, kAlbum);
    year_ = ReadField(record, kYear);
    comment_ = ReadField(record, kComment);
    zeroByte_ = 0;
    track_ = record[kZeroByte] == '\0' ? static_cast<std::uint8_t>(record[kTrack]) : std::uint8_t{0};
    genre_ = static_cast<std::uint8_t>(record[kGenre]);
    if (genre_ >= kGenreCount) genre_ = kNoGenre;
}

void ID3V1::Clear() { *this = ID3V1(); }

std::string ID3V1::CreateTag() const {
    if (!present_) return {};
    return identifier_ + Padded(title_, kTitle) + Padded(artist_, kArtist) + Padded(album_, kAlbum) +
           Padded(year_, kYear) + Padded(comment_, kComment) + static_cast<char>(zeroByte_) +
           static_cast<char>(track_) + static_cast<char>(genre_);
}

void ID3V1::SetPresent(bool present) {
    present_ = present;
    if (present) identifier_ = kIdentifier;
}

std::string ID3V1::GenreText() const { return GenreName(genre_); }

} // namespace calyvox
