// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/FrameHeader.h"

#include "engine/Bytes.h"
#include "engine/MP3File.h"
#include "engine/Tables.h"
#include "engine/TagHeader.h"
#include "platform/CodePage.h"

#include <string_view>

namespace calyvox {

namespace {

constexpr std::uint8_t kCompressed3 = 128;
constexpr std::uint8_t kEncryptedOrGroup3 = 64 | 32;
constexpr std::uint8_t kCompressedWithLength4 = 8 | 1;
constexpr std::uint8_t kGroup4 = 64;
constexpr std::uint8_t kUnSync4 = 2;

bool IsUnknown(const std::string& id) {
    constexpr std::string_view kExperimental = "XYZ";
    // The exact search is the quick one, and nearly every ID is written in capitals.
    const std::string entry = id + '\0';
    const bool known = Tables().FrameIDList.find(entry) != std::string::npos ||
                       CodePage::FindNoCase(Tables().FrameIDList, entry) != std::string::npos;
    return !known && kExperimental.find(id[0]) == std::string_view::npos;
}

} // namespace

bool FrameHeader::GetFrame(MP3File& file, const TagHeader& tag) {
    *this = FrameHeader();
    const std::string record = file.Read(kLength);
    id_ = record.substr(0, 4);
    sizeBytes_ = record.substr(4, 4);
    flagByte1_ = static_cast<std::uint8_t>(record[8]);
    flagByte2_ = static_cast<std::uint8_t>(record[9]);
    noFrame_ = IsUnknown(id_);
    if (tag.Version() == 3) size_ = Bytes::FromBigEndian(sizeBytes_);
    if (tag.Version() == 4) size_ = Bytes::FromSyncsafe(sizeBytes_);
    if (!noFrame_) ReadFlags(tag.Version());
    return true;
}

void FrameHeader::ReadFlags(std::uint8_t version) {
    if (version == 3) {
        compressed_ = (flagByte2_ & kCompressed3) != 0;
        encrypted_ = (flagByte2_ & kEncryptedOrGroup3) != 0;
    } else if (version == 4) {
        compressed_ = (flagByte2_ & kCompressedWithLength4) == kCompressedWithLength4;
        encrypted_ = (flagByte2_ & kGroup4) != 0;
        unSync_ = (flagByte2_ & kUnSync4) != 0;
    }
}

void FrameHeader::SetSize(std::int64_t size, const TagHeader& tag) {
    size_ = size;
    if (tag.Version() == 3) sizeBytes_ = Bytes::ToBigEndian(size);
    if (tag.Version() == 4) sizeBytes_ = Bytes::ToSyncsafe(size);
}

void FrameHeader::SetFrameID(const std::string& id) { id_ = CodePage::Upper(id).substr(0, 4); }

} // namespace calyvox
