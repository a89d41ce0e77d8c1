// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/modID3V1.h"

#include <cstdint>
#include <string>

namespace calyvox {

class MP3File;

/// The 128-byte tag at the end of a file. Only the layout with a track byte is known: the comment has 28
/// bytes. (ID3v1.1, https://id3.org/ID3v1)
///
///   offset  size  content
///        0     3  "TAG"
///        3    30  title
///       33    30  artist
///       63    30  album
///       93     4  year
///       97    28  comment
///      125     1  zero byte; anything else means that there is no track byte
///      126     1  track, 0 for none
///      127     1  genre number, 255 for none
class ID3V1 {
public:
    static constexpr std::int64_t kLength = 128;

    /// Reads the last 128 bytes of an open file. True if the reading worked; Present tells what was found.
    /// On a failure the result is false and the file is closed.
    bool GetTag(MP3File& file);
    /// The record, texts cut or filled with NULs to their width; empty when not Present.
    std::string CreateTag() const;

    const std::string& Title() const { return title_; }
    void SetTitle(const std::string& text) { title_ = text; }
    const std::string& Artist() const { return artist_; }
    void SetArtist(const std::string& text) { artist_ = text; }
    const std::string& Album() const { return album_; }
    void SetAlbum(const std::string& text) { album_ = text; }
    const std::string& Year() const { return year_; }
    void SetYear(const std::string& text) { year_ = text; }
    const std::string& Comment() const { return comment_; }
    void SetComment(const std::string& text) { comment_ = text; }
    std::uint8_t Track() const { return track_; }
    void SetTrack(std::uint8_t track) { track_ = track; }
    std::uint8_t Genre() const { return genre_; }
    void SetGenre(std::uint8_t genre) { genre_ = genre; }
    bool Present() const { return present_; }
    /// True also sets the identifier; false leaves the fields.
    void SetPresent(bool present);
    /// The genre's name, "< undefined >" for a number above 125.
    std::string GenreText() const;

private:
    void Parse(const std::string& record);
    void Clear();

    bool present_ = false;
    std::string identifier_;
    std::string title_;
    std::string artist_;
    std::string album_;
    std::string year_;
    std::string comment_;
    std::uint8_t zeroByte_ = 0;
    std::uint8_t track_ = 0;
    std::uint8_t genre_ = kNoGenre;
};

} // namespace calyvox
