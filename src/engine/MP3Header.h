// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace calyvox {

class MP3File;
class TagHeader;

/// The first audio frame header of a file, found by eleven set sync bits alone and decoded by tables.
/// (ISO/IEC 11172-3, 2.4.1.3; ISO/IEC 13818-3)
///
///   byte  bits  content
///      0     8  sync
///      1   3+2  sync, version code: 0 MPEG-2.5, 1 reserved, 2 MPEG-2, 3 MPEG-1
///            2  layer code: 0 reserved, 1 Layer III, 2 Layer II, 3 Layer I
///      2   4+2  bit-rate index, sample-rate index
///      3     2  channel code
class MP3Header {
public:
    /// Searches from behind the tag, at most 32764 positions, and decodes. True also where no frame was
    /// found: then four NUL bytes are decoded. On a failure the result is false and the file is closed.
    bool GetMP3Header(MP3File& file, const TagHeader& tag);

    /// "MPEG-1.0 ", "MPEG-2.0 ", "MPEG-2.5 " with the blank, or empty.
    std::string MPEG() const;
    std::string Layer() const;
    /// Bits per second.
    std::int32_t BitRate() const { return bitRate_; }
    /// Hertz.
    std::int32_t Frequence() const { return frequence_; }
    std::string Channel() const;

private:
    void Decode(const std::string& header);

    std::uint8_t versionCode_ = 0;
    std::uint8_t layerCode_ = 0;
    std::uint8_t channelCode_ = 0;
    std::int32_t bitRate_ = 0;
    std::int32_t frequence_ = 0;
};

} // namespace calyvox
