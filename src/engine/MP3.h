// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ID3V1.h"
#include "engine/ID3V2.h"
#include "engine/MP3File.h"
#include "engine/MP3Header.h"
#include "engine/TagHeader.h"

#include <cstdint>
#include <memory>
#include <string>

namespace calyvox {

/// One audio file with everything known about it: ExploreMP3 fills it from the disk, WriteTags brings the
/// disk in line with it. Between the two only the object changes.
class MP3 {
public:
    /// Flags of the status of ExploreMP3.
    static constexpr std::uint8_t kOpened = 128;    // opened, and not too short
    static constexpr std::uint8_t kFramesRead = 64; // an ID3V2 tag of version 2.3 or 2.4
    static constexpr std::uint8_t kHeaderRead = 32;
    static constexpr std::uint8_t kID3V1Read = 16;
    static constexpr std::uint8_t kCleanedCopy = 8; // the 2.3 tag was unsynchronised

    MP3();

    /// Reads the file in one pass. The path must end in ".mp3", letter case ignored: a file of any other
    /// name with a 2.3 tag is taken for a temporary copy and deleted. What is damaged shows in the status
    /// alone; failures of the tag header and of the disk are thrown.
    std::uint8_t ExploreMP3(const std::string& path);
    /// A pending rename, the ID3V1 tag, the ID3V2 tag and the removal of either, in this order. False after a
    /// failure, of which the host's boxes tell; the audio is whole then, each tag old or new. The first
    /// argument is not read. Changed is left alone.
    bool WriteTags(bool unused, bool showProgress);
    /// Both act on the object alone; the file changes at the next WriteTags.
    void RemoveID3V1();
    void RemoveID3V2();
    bool Changed() const { return changed_; }
    void SetChanged(bool changed) { changed_ = changed; }

    /// The frames.
    calyvox::ID3V2& ID3V2() { return *id3v2_; }
    const calyvox::ID3V2& ID3V2() const { return *id3v2_; }

    // Each of these passes on to the member that its name begins with.
    bool MP3File_OpenFile() { return file_->OpenFile(); }
    bool MP3File_OpenFileLocked() { return file_->OpenFileLocked(); }
    void MP3File_CloseFile() { file_->CloseFile(); }
    std::int64_t MP3File_FilePos() const { return file_->FilePos(); }
    void SetMP3File_FilePos(std::int64_t position) { file_->SetFilePos(position); }
    int MP3File_FileNumber() const { return file_->FileNumber(); }
    const std::string& MP3File_FileName() const { return file_->Filename(); }
    void SetMP3File_FileName(const std::string& name) { file_->SetFilename(name); }
    const std::string& MP3File_OrigFileName() const { return file_->OrigFilename(); }
    void SetMP3File_OrigFileName(const std::string& name) { file_->SetOrigFilename(name); }
    std::int64_t MP3File_FileLen() const { return file_->FileLen(); }
    bool ID3V1_GetTag(MP3File& file) { return id3v1_.GetTag(file); }
    std::string ID3V1_CreateTag() const { return id3v1_.CreateTag(); }
    const std::string& ID3V1_Year() const { return id3v1_.Year(); }
    void SetID3V1_Year(const std::string& text) { id3v1_.SetYear(text); }
    std::uint8_t ID3V1_Track() const { return id3v1_.Track(); }
    void SetID3V1_Track(std::uint8_t track) { id3v1_.SetTrack(track); }
    const std::string& ID3V1_Title() const { return id3v1_.Title(); }
    void SetID3V1_Title(const std::string& text) { id3v1_.SetTitle(text); }
    bool ID3V1_Present() const { return id3v1_.Present(); }
    void SetID3V1_Present(bool present) { id3v1_.SetPresent(present); }
    std::string ID3V1_GenreText() const { return id3v1_.GenreText(); }
    std::uint8_t ID3V1_Genre() const { return id3v1_.Genre(); }
    void SetID3V1_Genre(std::uint8_t genre) { id3v1_.SetGenre(genre); }
    const std::string& ID3V1_Comment() const { return id3v1_.Comment(); }
    void SetID3V1_Comment(const std::string& text) { id3v1_.SetComment(text); }
    const std::string& ID3V1_Artist() const { return id3v1_.Artist(); }
    void SetID3V1_Artist(const std::string& text) { id3v1_.SetArtist(text); }
    const std::string& ID3V1_Album() const { return id3v1_.Album(); }
    void SetID3V1_Album(const std::string& text) { id3v1_.SetAlbum(text); }
    bool TagHeader_GetHeader(MP3File& file, bool restoreFile) {
        return tagHeader_.GetHeader(file, restoreFile);
    }
    std::string TagHeader_CreateHeader(const std::string& body) { return tagHeader_.CreateHeader(body); }
    std::string TagHeader_SizeAsString() const { return tagHeader_.SizeAsString(); }
    void TagHeader_SetSize(std::int64_t size) { tagHeader_.SetSize(size); }
    std::uint8_t TagHeader_Version() const { return tagHeader_.Version(); }
    void SetTagHeader_Version(std::uint8_t version) { tagHeader_.SetVersion(version); }
    std::int64_t TagHeader_Size() const { return tagHeader_.Size(); }
    bool TagHeader_Present() const { return tagHeader_.Present(); }
    void SetTagHeader_Present(bool present) { tagHeader_.SetPresent(present); }
    bool TagHeader_FooterPresent() const { return tagHeader_.FooterPresent(); }
    void SetTagHeader_FooterPresent(bool present) { tagHeader_.SetFooterPresent(present); }
    bool TagHeader_UnSync() const { return tagHeader_.UnSync(); }
    void SetTagHeader_UnSync(bool unSync) { tagHeader_.SetUnSync(unSync); }
    bool TagHeader_ExtHeaderPresent() const { return tagHeader_.ExtHeaderPresent(); }
    void SetTagHeader_ExtHeaderPresent(bool present) { tagHeader_.SetExtHeaderPresent(present); }
    bool MP3Header_GetMP3Header(MP3File& file, const TagHeader& tag) {
        return mp3Header_.GetMP3Header(file, tag);
    }
    std::string MP3Header_MPEG() const { return mp3Header_.MPEG(); }
    std::string MP3Header_Layer() const { return mp3Header_.Layer(); }
    std::int32_t MP3Header_BitRate() const { return mp3Header_.BitRate(); }
    std::int32_t MP3Header_Frequence() const { return mp3Header_.Frequence(); }
    std::string MP3Header_Channel() const { return mp3Header_.Channel(); }

private:
    void ReadID3V2(std::uint8_t& status);
    bool HoldsCopy() const;

    std::unique_ptr<calyvox::ID3V2> id3v2_;
    bool changed_ = false;
    std::unique_ptr<MP3File> file_;
    ID3V1 id3v1_;
    TagHeader tagHeader_;
    MP3Header mp3Header_;
};

} // namespace calyvox
