// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "automation/FileUpdate.h"

#include "app/SettingsCatalogue.h"
#include "app/modBase.h"
#include "app/modReport.h"
#include "automation/UpdateFrames.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"
#include "platform/HostPath.h"

namespace calyvox {

namespace {

constexpr const char* kAbsent = "\x01"; // no number begins so
constexpr const char* kNoChanges1 = "ID3V1 (No changes) - ";
constexpr const char* kNoChanges2 = "ID3V2 (No changes)";

struct TextKey {
    const char* Key;
    std::size_t Width;
    const std::string& (MP3::*Get)() const;
    void (MP3::*Set)(const std::string&);
};
constexpr TextKey kTextKeys[] = {
    {"ID3V1-Artist", 30, &MP3::ID3V1_Artist, &MP3::SetID3V1_Artist},
    {"ID3V1-Title", 30, &MP3::ID3V1_Title, &MP3::SetID3V1_Title},
    {"ID3V1-Album", 30, &MP3::ID3V1_Album, &MP3::SetID3V1_Album},
    {"ID3V1-Year", 4, &MP3::ID3V1_Year, &MP3::SetID3V1_Year},
    {"ID3V1-Comment", 28, &MP3::ID3V1_Comment, &MP3::SetID3V1_Comment},
};

} // namespace

bool FileUpdate::HasKey(const std::string& key) const { return keys_.find(key + '\0') != std::string::npos; }

std::string FileUpdate::Value(const std::string& key, const std::string& fallback) const {
    return modBase::IniRead(section_, key, fallback, dataFile_);
}

bool FileUpdate::IsYes(const std::string& key) const {
    return CodePage::Upper(CodePage::Trim(Value(key, "0"))) == "1";
}

std::string FileUpdate::Path() const {
    std::string path = Value("Path");
    if (!path.empty() && path.front() == '"') path.erase(0, 1);
    if (!path.empty() && path.back() == '"') path.pop_back();
    path = CodePage::Trim(path);
    return !path.empty() && path.front() == '/' ? HostPath::FromHost(path) : path;
}

FileUpdate::Result FileUpdate::Run(const std::string& path) {
    try {
        Apply(path);
        if (!id3v1Changed_ && !id3v2Removed_ && !mp3_.ID3V2().Changed())
            return {std::string(kNoChanges1) + kNoChanges2};
        if (!mp3_.WriteTags(true, false)) throw Failure(Failure::kPathAccess, "MassUpdate");
        return Outcome();
    } catch (const Failure& failure) {
        ReportLine("frmMassUpdate: btnStart: Error: " + std::to_string(failure.Number()));
        return {"Error occured", true};
    }
}

void FileUpdate::Apply(const std::string& path) {
    // The reader takes a file of another name for its own temporary copy.
    if (!CodePage::EndsWithNoCase(path, ".mp3")) throw Failure(Failure::kPathAccess, "MassUpdate");
    status_ = mp3_.ExploreMP3(path);
    if (IsYes("UntagID3V1") && mp3_.ID3V1_Present()) {
        mp3_.RemoveID3V1();
        id3v1Changed_ = true;
    }
    syncTrouble_ =
        (status_ & MP3::kCleanedCopy) == 0 && mp3_.TagHeader_UnSync() && mp3_.TagHeader_Version() == 3;
    const bool id3v2Usable = !syncTrouble_ && (status_ & MP3::kOpened) != 0;
    if (id3v2Usable && IsYes("UntagID3V2") && mp3_.TagHeader_Present()) {
        mp3_.RemoveID3V2();
        id3v2Removed_ = true;
    }
    if (keys_.find(std::string("\0ID3V1", 6)) != std::string::npos) ApplyID3V1();
    if (id3v2Usable) ApplyID3V2();
    if (keys_.find(std::string("\0ID3V1-", 7)) != std::string::npos && id3v1Changed_)
        mp3_.SetID3V1_Present(true);
    if (mp3_.ID3V2().Changed() && !mp3_.TagHeader_Present()) {
        // A tag of any other version would be written without a frame, and what it replaces would be gone.
        if (version_ != 3 && version_ != 4) throw Failure(Failure::kInvalidCall, "MassUpdate");
        mp3_.SetTagHeader_Present(true);
        mp3_.SetTagHeader_Version(version_);
    }
}

void FileUpdate::ApplyID3V1() {
    for (const TextKey& key : kTextKeys) {
        if (!HasKey(key.Key)) continue;
        const std::string text = CodePage::Trim(Value(key.Key)).substr(0, key.Width);
        if (text == (mp3_.*key.Get)()) continue;
        (mp3_.*key.Set)(text);
        id3v1Changed_ = true;
    }
    if (HasKey("ID3V1-TrackNum")) {
        const std::uint8_t track = CodePage::LeadingByte(Value("ID3V1-TrackNum"));
        id3v1Changed_ |= track != mp3_.ID3V1_Track();
        mp3_.SetID3V1_Track(track);
    }
    if (HasKey("ID3V1-Genre")) {
        const std::string text = CodePage::Trim(Value("ID3V1-Genre"));
        const std::uint8_t genre = text.empty() ? kNoGenre : CodePage::LeadingByte(text);
        id3v1Changed_ |= genre != mp3_.ID3V1_Genre();
        mp3_.SetID3V1_Genre(genre);
    }
}

// A tag that is there keeps its own; the setting, which is the dearest to read, is asked last.
std::uint8_t FileUpdate::TagVersion() const {
    if (mp3_.TagHeader_Present()) return mp3_.TagHeader_Version();
    const std::string told = Value("ID3V2Version", kAbsent);
    return CodePage::LeadingByte(told == kAbsent ? ReadSetting("Settings\\ID3V2Ver", "3") : told);
}

void FileUpdate::ApplyID3V2() {
    version_ = TagVersion();
    for (std::size_t at = 0; at < keys_.size();) {
        const std::size_t end = std::min(keys_.find('\0', at), keys_.size());
        const std::string key = keys_.substr(at, end - at);
        at = end + 1;
        const FrameKeyKind kind = KindOfFrameKey(key);
        if (kind == FrameKeyKind::None) continue;
        std::string value = Value(key);
        if (kind == FrameKeyKind::Comment && HasKey("COMD")) value.insert(0, Value("COMD") + kPartEnd);
        AddFramesOfKey(mp3_.ID3V2(), key, value, version_);
    }
    mp3_.ID3V2().ClearFrames();
}

FileUpdate::Result FileUpdate::Outcome() const {
    const std::string first = id3v1Changed_ ? "ID3V1 updated - " : "ID3V1 (Not updated) - ";
    if (syncTrouble_ || status_ < MP3::kOpened)
        return {first + "ID3V2 (Error: Count not sync. ID3-Tag.)", true};
    return {first + (mp3_.ID3V2().Changed() ? "ID3V2 (OK)" : "ID3V2 (Not updated)")};
}

} // namespace calyvox
