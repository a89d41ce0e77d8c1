// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/TagHeader.h"

#include "engine/Bytes.h"
#include "engine/EngineHost.h"
#include "engine/MP3File.h"
#include "engine/Unsynchronisation.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"

namespace calyvox {

namespace {

constexpr const char* kIdentifier = "ID3";
constexpr std::uint8_t kUnSyncFlag = 128;
constexpr std::uint8_t kExtHeaderFlag = 64;
constexpr std::uint8_t kFooterFlag = 16;
constexpr std::int64_t kBodyStart = TagHeader::kLength + 1;

void CheckLeft(std::int64_t count, std::int64_t left) {
    if (count < 0) throw Failure(Failure::kInvalidCall, "TagHeader");
    if (count > left) throw Failure(Failure::kOutOfMemory, "TagHeader");
}

} // namespace

void TagHeader::ReadRecord(MP3File& file) {
    file.SetFilePos(1);
    const std::string record = file.Read(kLength);
    if (CodePage::Upper(record.substr(0, 3)) == kIdentifier) present_ = true;
    if (!present_) {
        *this = TagHeader();
        return;
    }
    identifier_ = record.substr(0, 3);
    version_ = static_cast<std::uint8_t>(record[3]);
    revision_ = static_cast<std::uint8_t>(record[4]);
    flags_ = static_cast<std::uint8_t>(record[5]);
    sizeBytes_ = record.substr(6, 4);
    size_ = Bytes::FromSyncsafe(sizeBytes_);
    extHeaderPresent_ = (version_ == 3 || version_ == 4) && (flags_ & kExtHeaderFlag) != 0;
    footerPresent_ = version_ == 4 && (flags_ & kFooterFlag) != 0;
    unSync_ = (flags_ & kUnSyncFlag) != 0;
}

bool TagHeader::GetHeader(MP3File& file, bool restoreFile) {
    ReadRecord(file);
    if (!present_) return true;
    if (version_ == 3 && unSync_ && restoreFile) {
        // The copy would be undone at once; cleaning in memory comes to the same.
        if (extHeaderPresent_) {
            std::string body = ReadCleanBody(file);
            ReadExtendedHeader([&](std::int64_t count) {
                CheckLeft(count, static_cast<std::int64_t>(body.size()));
                return Bytes::TakeFront(body, static_cast<std::size_t>(count));
            });
        }
        file.SetFilePos(kBodyStart);
        return true;
    }
    const bool copied = version_ == 3 && unSync_;
    if (copied) OpenCleanCopy(file);
    try {
        file.SetFilePos(kBodyStart);
        if (extHeaderPresent_)
            ReadExtendedHeader([&](std::int64_t count) {
                CheckLeft(count, file.FileLen() - file.FilePos() + 1);
                return file.Read(count);
            });
    } catch (const Failure&) {
        if (copied) RestoreFile(file);
        throw;
    }
    return true;
}

void TagHeader::ReadExtendedHeader(const Reader& read) {
    extSizeBytes_ = read(4);
    extSize_ = version_ == 4 ? Bytes::FromSyncsafe(extSizeBytes_) : Bytes::FromBigEndian(extSizeBytes_);
    const std::int64_t rest = version_ == 4 ? extSize_ - 4 : extSize_;
    extHeader_ = read(rest);
}

std::string TagHeader::ReadCleanBody(MP3File& file) const {
    file.SetFilePos(kBodyStart);
    return Resynchronise(file.Read(size_));
}

void TagHeader::OpenCleanCopy(MP3File& file) {
    const std::string copy = std::string(kLength, '\0') + ReadCleanBody(file);
    file.CloseFile();
    const std::string copyName = FileSystem::CreateTempFile(kIdentifier);
    try {
        BinaryFile target;
        target.OpenLocked(copyName);
        target.Write(copy);
    } catch (const Failure&) {
        Skip([&] { FileSystem::DeleteFile(copyName); });
        throw;
    }
    const std::string realName = file.Filename();
    file.SetFilename(copyName);
    file.OpenFile();
    file.SetOrigFilename(realName);
    unSync_ = false;
}

void TagHeader::RestoreFile(MP3File& file) {
    file.CloseFile();
    const std::string copyName = file.Filename();
    file.SetFilename(file.OrigFilename());
    file.SetOrigFilename({});
    unSync_ = true;
    // One that cannot be deleted goes with its folder, at the process's end.
    Skip([&] { FileSystem::DeleteFile(copyName); });
    file.OpenFile();
}

std::int64_t TagHeader::ClaimedLength(MP3File& file) {
    TagHeader header;
    header.ReadRecord(file);
    return header.TotalLength();
}

std::int64_t TagHeader::TotalLength() const {
    if (!present_) return 0;
    return kLength + size_ + (footerPresent_ ? kFooterLength : 0);
}

std::string TagHeader::CreateHeader(const std::string& body) {
    std::string extended;
    if (extHeaderPresent_) extended = (extSize_ == 0 ? std::string() : extSizeBytes_) + extHeader_;
    unSync_ = Host().WriteUnSync;
    flags_ = static_cast<std::uint8_t>(unSync_ ? flags_ | kUnSyncFlag : flags_ & ~kUnSyncFlag);
    if (unSync_ && extHeaderPresent_) extended = Unsynchronise(extended);
    SetSize(static_cast<std::int64_t>(body.size() + extended.size()));
    return identifier_ + static_cast<char>(version_) + static_cast<char>(revision_) +
           static_cast<char>(flags_) + sizeBytes_ + extended;
}

void TagHeader::SetSize(std::int64_t size) {
    constexpr std::int64_t kTooLarge = std::int64_t{1} << 29;
    if (size >= kTooLarge) throw Failure(Failure::kOverflow, "TagHeader");
    size_ = size;
    sizeBytes_ = Bytes::ToSyncsafe(size);
}

void TagHeader::SetVersion(std::uint8_t version) {
    version_ = version;
    if (version_ == 3) flags_ &= static_cast<std::uint8_t>(~kFooterFlag);
}

void TagHeader::SetPresent(bool present) {
    present_ = present;
    if (!present_) return;
    identifier_ = kIdentifier;
    if (version_ == 0) version_ = Host().NewTagVersion();
}

void TagHeader::SetFooterPresent(bool present) {
    footerPresent_ = present;
    flags_ ^= kFooterFlag;
}

void TagHeader::SetExtHeaderPresent(bool present) {
    if (present) return;
    extHeaderPresent_ = false;
    extHeader_.clear();
    extSize_ = 0;
    flags_ ^= kExtHeaderFlag;
}

} // namespace calyvox
