// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "SampleFile.h"

#include <zlib.h>

#include <array>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace calyvox::Samples {

namespace {

using std::string_literals::operator""s;

// Audio: MPEG-1 Layer III, 128 kbit/s, 44100 Hz. Every granule holds the same spectral line with the value 1,
// as Huffman table 1 codes it; overlapped, that is a steady sine. No frame borrows from the one before it.

constexpr std::size_t kFrames = 77;
constexpr unsigned kBitRate = 128000;
constexpr unsigned kSampleRate = 44100;
constexpr unsigned kLoudestGain = 198; // 210 would be full scale, 4 less halve the amplitude

class BitWriter {
public:
    void Put(unsigned value, unsigned bits) {
        while (bits-- > 0) {
            if (count_ % 8 == 0) bytes_ += '\0';
            if ((value >> bits) & 1U)
                bytes_.back() = static_cast<char>(bytes_.back() | (0x80U >> (count_ % 8)));
            ++count_;
        }
    }
    unsigned Count() const { return count_; }
    const std::string& Bytes() const { return bytes_; }

private:
    std::string bytes_;
    unsigned count_ = 0;
};

// One pair of lines a step, up to the one that is not 0.
void PutLine(BitWriter& data, unsigned line) {
    for (unsigned pair = 0; pair < line / 2; ++pair)
        data.Put(1, 1);
    if (line % 2 == 0)
        data.Put(0b01, 2);
    else
        data.Put(0b001, 3);
    data.Put(0, 1); // positive
}

void PutGranuleInfo(BitWriter& info, unsigned dataBits, unsigned line, std::size_t granule) {
    info.Put(dataBits, 12);
    info.Put(line / 2 + 1, 9);                                       // pairs of big values
    info.Put(kLoudestGain - static_cast<unsigned>(granule) / 16, 8); // dies away slowly
    info.Put(0, 4);                                                  // no scale factors
    info.Put(0, 1);                                                  // long window
    for (int region = 0; region < 3; ++region)
        info.Put(1, 5); // Huffman table
    info.Put(7, 4);
    info.Put(7, 3);
    info.Put(0, 3);
}

std::string AudioFrame(std::size_t frame, unsigned line, unsigned channels, bool padded) {
    BitWriter info;
    BitWriter data;
    info.Put(0, 9);
    info.Put(0, channels == 1 ? 5 : 3);
    info.Put(0, 4 * channels);
    for (std::size_t granule = 2 * frame; granule < 2 * frame + 2; ++granule) {
        for (unsigned channel = 0; channel < channels; ++channel) {
            const unsigned before = data.Count();
            PutLine(data, line);
            PutGranuleInfo(info, data.Count() - before, line, granule);
        }
    }
    std::string bytes = "\xFF\xFB"s;
    bytes += static_cast<char>(padded ? 0x92 : 0x90);
    bytes += static_cast<char>(channels == 1 ? 0xC4 : 0x04);
    bytes += info.Bytes() + data.Bytes();
    bytes.resize(144 * kBitRate / kSampleRate + (padded ? 1 : 0));
    return bytes;
}

std::string Audio(const Track& track) {
    const unsigned line = 8 + static_cast<unsigned>(track.Index * 5 % 24); // 38.28 Hz each
    const unsigned channels = track.Index % 3 == 0 ? 1 : 2;
    std::string bytes;
    unsigned rest = 0;
    for (std::size_t frame = 0; frame < kFrames; ++frame) {
        rest += 144 * kBitRate % kSampleRate;
        const bool padded = rest >= kSampleRate;
        if (padded) rest -= kSampleRate;
        bytes += AudioFrame(frame, line, channels, padded);
    }
    return bytes;
}

// Numbers, texts, compression and pictures.

std::string BigEndian(std::size_t value, unsigned bitsPerByte = 8) {
    std::string bytes;
    for (unsigned i = 4; i-- > 0;)
        bytes += static_cast<char>((value >> (i * bitsPerByte)) & ((1U << bitsPerByte) - 1));
    return bytes;
}

std::string SyncSafe(std::size_t value) { return BigEndian(value, 7); }

std::vector<char16_t> Characters(const std::string& utf8) {
    std::vector<char16_t> characters;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : 3;
        unsigned value = length == 1 ? lead : lead & (0xFFU >> (length + 1));
        for (std::size_t k = 1; k < length; ++k)
            value = value << 6 | (static_cast<unsigned char>(utf8.at(i + k)) & 0x3FU);
        characters.push_back(static_cast<char16_t>(value));
        i += length;
    }
    return characters;
}

std::string Latin1(const std::string& utf8) {
    std::string bytes;
    for (const char16_t character : Characters(utf8))
        bytes += character < 0x100 ? static_cast<char>(character) : '?';
    return bytes;
}

std::string Utf16(const std::string& utf8) {
    std::string bytes = "\xFF\xFE"s;
    for (const char16_t character : Characters(utf8))
        (bytes += static_cast<char>(character & 0xFF)) += static_cast<char>(character >> 8);
    return bytes;
}

std::string Deflated(const std::string& data) {
    uLongf size = compressBound(data.size());
    std::string bytes(size, '\0');
    if (compress(reinterpret_cast<Bytef*>(bytes.data()), &size, reinterpret_cast<const Bytef*>(data.data()),
                 data.size()) != Z_OK)
        throw std::runtime_error("zlib cannot compress");
    bytes.resize(size);
    return bytes;
}

std::string Unsynchronised(const std::string& data) {
    std::string bytes;
    for (std::size_t i = 0; i < data.size(); ++i) {
        bytes += data[i];
        const auto next = static_cast<unsigned char>(i + 1 < data.size() ? data[i + 1] : 0);
        if (data[i] == '\xFF' && (next >= 0xE0 || next == 0)) bytes += '\0';
    }
    return bytes;
}

std::string PngChunk(const std::string& name, const std::string& data) {
    const std::string checked = name + data;
    const auto* begin = reinterpret_cast<const Bytef*>(checked.data());
    return BigEndian(data.size()) + checked + BigEndian(crc32(0, begin, static_cast<uInt>(checked.size())));
}

// A shaded square of 32 x 32 pixels, 8 bits a colour.
std::string Png(std::size_t seed) {
    constexpr std::size_t kSide = 32;
    std::string rows;
    for (std::size_t y = 0; y < kSide; ++y) {
        rows += '\0';
        for (std::size_t x = 0; x < kSide; ++x)
            ((rows += static_cast<char>(x * 8)) += static_cast<char>(y * 8)) += static_cast<char>(seed * 37);
    }
    return "\x89PNG\r\n\x1A\n"s + PngChunk("IHDR", BigEndian(kSide) + BigEndian(kSide) + "\x08\x02\0\0\0"s) +
           PngChunk("IDAT", Deflated(rows)) + PngChunk("IEND", "");
}

// Tags.

enum class Encoding : char { Latin1 = 0, Utf16 = 1, Utf8 = 3 };

struct Frame {
    std::string Id;
    std::string Body;
    bool Compressed = false;
};

struct Style {
    int Version = 3;
    bool Unsync = false;
    bool Extended = false;
    bool Footer = false;
    Encoding Texts = Encoding::Latin1;
};

std::string Text(Encoding encoding, const std::string& utf8) {
    const std::string lead(1, static_cast<char>(encoding));
    if (encoding == Encoding::Latin1) return lead + Latin1(utf8);
    return lead + (encoding == Encoding::Utf16 ? Utf16(utf8) : utf8);
}

std::string FrameBytes(const Style& style, const Frame& frame) {
    const bool newest = style.Version == 4;
    if (style.Version == 2) return frame.Id + BigEndian(frame.Body.size()).substr(1) + frame.Body;
    std::string body = frame.Body;
    unsigned flags = 0;
    if (frame.Compressed) {
        body = BigEndian(body.size(), newest ? 7 : 8) + Deflated(body);
        flags |= newest ? 0x09U : 0x80U;
    }
    if (newest && style.Unsync) {
        body = Unsynchronised(body);
        flags |= 0x02U;
    }
    return frame.Id + BigEndian(body.size(), newest ? 7 : 8) + '\0' + static_cast<char>(flags) + body;
}

std::string ExtendedHeader(const Style& style, std::size_t padding) {
    if (!style.Extended) return {};
    if (style.Version == 4) return SyncSafe(6) + "\x01\0"s;
    return BigEndian(6) + "\0\0"s + BigEndian(padding);
}

std::string Tag(const Style& style, const std::vector<Frame>& frames) {
    const std::size_t padding = style.Footer ? 0 : 256;
    std::string body = ExtendedHeader(style, padding);
    for (const Frame& frame : frames)
        body += FrameBytes(style, frame);
    body.append(padding, '\0');
    if (style.Unsync && style.Version == 3) body = Unsynchronised(body);
    const unsigned flags =
        (style.Unsync ? 0x80U : 0U) | (style.Extended ? 0x40U : 0U) | (style.Footer ? 0x10U : 0U);
    std::string header(1, static_cast<char>(style.Version));
    (header += '\0') += static_cast<char>(flags);
    header += SyncSafe(body.size());
    return "ID3" + header + body + (style.Footer ? "3DI" + header : "");
}

std::string Field(const std::string& utf8, std::size_t width) {
    std::string bytes = Latin1(utf8);
    bytes.resize(width);
    return bytes;
}

std::string ID3V1(const Track& track) {
    return "TAG" + Field(track.Title, 30) + Field(track.Artist, 30) + Field(track.Album, 30) +
           Field(std::to_string(track.Year), 4) + Field("Sample", 29) + static_cast<char>(track.Number) +
           static_cast<char>(track.Index % 126);
}

std::vector<Frame> BasicFrames(const Track& track, const Style& style) {
    const Encoding encoding = style.Texts;
    return {{"TIT2", Text(encoding, track.Title)},
            {"TPE1", Text(encoding, track.Artist)},
            {"TALB", Text(encoding, track.Album)},
            {"TRCK", Text(Encoding::Latin1, std::to_string(track.Number) + "/12")},
            {"TCON", Text(Encoding::Latin1, "Folk-Rock")},
            {style.Version == 4 ? "TDRC" : "TYER", Text(Encoding::Latin1, std::to_string(track.Year))}};
}

std::string Tagged(const Track& track, const Style& style, const std::vector<Frame>& further = {}) {
    std::vector<Frame> frames = BasicFrames(track, style);
    frames.insert(frames.end(), further.begin(), further.end());
    return Tag(style, frames) + Audio(track);
}

std::vector<Frame> Compressed(int version) {
    std::vector<Frame> frames = {{"TCOM", Text(Encoding::Latin1, "Nobody in particular"), true},
                                 {"COMM", "\0eng\0"s + std::string(100, '-'), true}};
    if (version == 3) frames.push_back({"USLT", "\0eng\0"s + std::string(20000, 'a'), true});
    return frames;
}

std::vector<Frame> Picture(const Track& track) {
    return {{"APIC", "\0image/png\0\x03\0"s + Png(track.Index)}};
}

std::vector<Frame> Comments() {
    return {{"COMM", "\0eng\0A plain comment"s},
            {"COMM", "\0engOrigin\0Made by a program"s},
            {"COMM", "\0deuNotiz\0Ein zweiter Kommentar, f\xFCr Umlaute"s},
            {"USLT", "\0engWords\0La la la\nla la"s},
            {"TXXX", "\0Mood\0Calm"s},
            {"WXXX", "\0Home\0http://example.org/"s},
            {"WCOM", "http://example.org/shop"}};
}

std::vector<Frame> Ratings(const Track& track) {
    const std::string rating(1, static_cast<char>(1 + track.Index * 51 % 255));
    return {{"POPM", "listener@example.org\0"s + rating + BigEndian(track.Index + 7)},
            {"POPM", "second@example.org\0\xC8"s},
            {"PCNT", BigEndian(track.Index)}};
}

std::string OldTag(const Track& track) {
    return Tag({.Version = 2}, {{"TT2", Text(Encoding::Latin1, track.Title)},
                                {"TP1", Text(Encoding::Latin1, track.Artist)},
                                {"TAL", Text(Encoding::Latin1, track.Album)},
                                {"TRK", Text(Encoding::Latin1, std::to_string(track.Number))}}) +
           Audio(track);
}

std::string GarbageSizes(const Track& track) {
    std::string bytes = Tagged(track, {});
    bytes.replace(bytes.find("TPE1") + 4, 4, "\x7F\xFF\xFF\xF0");
    bytes.replace(bytes.find("TALB") + 4, 4, "\xFF\xFF\xFF\xFF");
    return bytes;
}

} // namespace

std::span<const Kind> ValidKinds() {
    static const std::array kinds = {
        Kind{"ID3V1", [](const Track& t) { return Audio(t) + ID3V1(t); }},
        Kind{"2.3", [](const Track& t) { return Tagged(t, {}); }},
        Kind{"2.4", [](const Track& t) { return Tagged(t, {.Version = 4}); }},
        Kind{"2.4 with footer", [](const Track& t) { return Tagged(t, {.Version = 4, .Footer = true}); }},
        Kind{"2.3 and ID3V1", [](const Track& t) { return Tagged(t, {}) + ID3V1(t); }},
        Kind{"2.4 and ID3V1", [](const Track& t) { return Tagged(t, {.Version = 4}) + ID3V1(t); }},
        Kind{"2.3 unsynchronised",
             [](const Track& t) { return Tagged(t, {.Unsync = true, .Texts = Encoding::Utf16}); }},
        Kind{"2.4 unsynchronised",
             [](const Track& t) {
                 return Tagged(t, {.Version = 4, .Unsync = true, .Texts = Encoding::Utf16}, Picture(t));
             }},
        Kind{"2.3 compressed", [](const Track& t) { return Tagged(t, {}, Compressed(3)); }},
        Kind{"2.4 compressed", [](const Track& t) { return Tagged(t, {.Version = 4}, Compressed(4)); }},
        Kind{"2.3 picture", [](const Track& t) { return Tagged(t, {}, Picture(t)) + ID3V1(t); }},
        Kind{"2.4 picture", [](const Track& t) { return Tagged(t, {.Version = 4}, Picture(t)); }},
        Kind{"2.3 comments", [](const Track& t) { return Tagged(t, {}, Comments()); }},
        Kind{"2.4 comments", [](const Track& t) { return Tagged(t, {.Version = 4}, Comments()) + ID3V1(t); }},
        Kind{"2.3 ratings", [](const Track& t) { return Tagged(t, {}, Ratings(t)); }},
        Kind{"2.3 UTF-16", [](const Track& t) { return Tagged(t, {.Texts = Encoding::Utf16}); }},
        Kind{"2.4 UTF-8", [](const Track& t) { return Tagged(t, {.Version = 4, .Texts = Encoding::Utf8}); }},
        Kind{"2.3 extended", [](const Track& t) { return Tagged(t, {.Extended = true}); }},
        Kind{"2.4 extended", [](const Track& t) { return Tagged(t, {.Version = 4, .Extended = true}); }},
        Kind{"2.2", OldTag},
        Kind{"no tag", Audio},
    };
    return kinds;
}

std::span<const Kind> BrokenKinds() {
    static const std::array kinds = {
        Kind{"Truncated Tag", [](const Track& t) { return Tagged(t, {}, Picture(t)).substr(0, 400); }},
        Kind{"Garbage Frame Sizes", GarbageSizes},
        Kind{"Three Hundred Bytes", [](const Track& t) { return Audio(t).substr(0, 300); }},
        Kind{"Empty File", [](const Track&) { return std::string(); }},
        Kind{"Read Only", [](const Track& t) { return Tagged(t, {}) + ID3V1(t); }, true},
    };
    return kinds;
}

} // namespace calyvox::Samples
