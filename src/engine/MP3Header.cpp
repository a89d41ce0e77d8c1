// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/MP3Header.h"

#include "engine/MP3File.h"
#include "engine/Tables.h"
#include "engine/TagHeader.h"
#include "platform/Failure.h"

#include <algorithm>
#include <array>

namespace calyvox {

namespace {

constexpr std::int64_t kLongSearch = 32763;
constexpr std::int64_t kStep = 4096;

bool IsSync(char first, char second) {
    return static_cast<unsigned char>(first) == 0xFF && static_cast<unsigned char>(second) >= 0xE0;
}

// The 1-based position of the first sync from first to last, 0 without one.
std::int64_t FindSync(MP3File& file, std::int64_t first, std::int64_t last) {
    for (std::int64_t position = first; position <= last; position += kStep) {
        const std::int64_t count = std::min(kStep, last - position + 1);
        file.SetFilePos(position);
        const std::string bytes = file.Read(count + 1);
        for (std::int64_t i = 0; i < count; ++i)
            if (IsSync(bytes[i], bytes[i + 1])) return position + i;
    }
    return 0;
}

} // namespace

bool MP3Header::GetMP3Header(MP3File& file, const TagHeader& tag) {
    *this = MP3Header();
    try {
        std::int64_t start = tag.Present() ? tag.Size() + 11 : 1;
        const std::int64_t search = file.FileLen() < 32768 ? file.FileLen() - 4 : kLongSearch;
        if (file.FileLen() < start) start = 1;
        std::string header(4, '\0');
        if (const std::int64_t found = FindSync(file, start, start + search); found > 0) {
            file.SetFilePos(found);
            header = file.Read(4);
        }
        Decode(header);
        return true;
    } catch (const Failure&) {
        file.CloseFile();
        return false;
    }
}

void MP3Header::Decode(const std::string& header) {
    const auto bits = [&](int byte, int mask, int unit) {
        return static_cast<std::uint8_t>((static_cast<unsigned char>(header[byte]) & mask) / unit);
    };
    versionCode_ = bits(1, 24, 8);
    layerCode_ = bits(1, 6, 2);
    channelCode_ = bits(3, 192, 64);
    const std::size_t column = (versionCode_ & 1) * 4 + layerCode_;
    bitRate_ = Tables().BitRateTable[bits(2, 240, 16)][column] * 1000;
    frequence_ = Tables().FrequencyTable[versionCode_][bits(2, 12, 4)];
}

std::string MP3Header::MPEG() const {
    constexpr std::array kNames = {"MPEG-2.5 ", "", "MPEG-2.0 ", "MPEG-1.0 "};
    return kNames[versionCode_];
}

std::string MP3Header::Layer() const {
    constexpr std::array kNames = {"", "Layer III", "Layer II", "Layer I"};
    return kNames[layerCode_];
}

std::string MP3Header::Channel() const {
    constexpr std::array kNames = {"Stereo", "Joint Stereo", "Dual Channel", "Single Channel"};
    return kNames[channelCode_];
}

} // namespace calyvox
