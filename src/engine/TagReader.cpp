// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/TagReader.h"

#include "engine/ID3V2.h"
#include "engine/MP3File.h"
#include "engine/TagHeader.h"
#include "engine/V2BinFrame.h"
#include "engine/V2LDCFrame.h"
#include "engine/V2POPMFrame.h"
#include "engine/V2TextFrame.h"
#include "engine/V2UserTexWebFrame.h"
#include "engine/V2WebFrame.h"

#include <string_view>

namespace calyvox {

namespace {

constexpr std::string_view kTextFrames = "TPE1 TPE2 TPE3 TPE4 TIT1 TIT2 TIT3 TALB TBPM TCON TDAT TDLY TENC "
                                         "TEXT TFLT TIME TKEY TLAN TMED TOAL TOFN "
                                         "TOLY TOPE TORY TOWN TPOS TPUB TRCK TRDA TRSN TRSO TSIZ TSRC TSSE "
                                         "TYER TCOM TCOP TLEN IPLS TDOR TDRC TDRL "
                                         "TDTG TIPL TMCL TMOO TPRO TSOA TSOP TSOT TSST ";
constexpr std::string_view kWebFrames = "WCOM WCOP WOAF WOAR WOAS WORS WPAY WPUB ";
constexpr std::string_view kDescribedFrames = "COMM USLT ";
constexpr std::string_view kUserFrames = "TXXX WXXX ";
constexpr std::string_view kPadding{"\0\0\0\0", 4};

// Lists are of four letters and a blank each.
bool Lists(std::string_view ids, std::string_view id) {
    constexpr std::size_t kStride = 5;
    for (std::size_t at = 0; at < ids.size(); at += kStride)
        if (ids.substr(at, kStride - 1) == id) return true;
    return false;
}

std::unique_ptr<V2Frame> FrameFor(const std::string& id) {
    if (Lists(kTextFrames, id)) return std::make_unique<V2TextFrame>();
    if (Lists(kWebFrames, id)) return std::make_unique<V2WebFrame>();
    if (Lists(kDescribedFrames, id)) return std::make_unique<V2LDCFrame>();
    if (Lists(kUserFrames, id)) return std::make_unique<V2UserTexWebFrame>();
    if (id == "POPM") return std::make_unique<V2POPMFrame>();
    return std::make_unique<V2BinFrame>();
}

} // namespace

std::unique_ptr<V2Frame> MakeFrame(const std::string& id) {
    std::unique_ptr<V2Frame> frame = FrameFor(id);
    frame->SetFrameHeader_FrameID(id);
    return frame;
}

void ReadFrames(MP3File& file, const TagHeader& tag, ID3V2& frames) {
    // Positions are 1-based: the body ends at Size + 10, and a frame needs 10 bytes.
    const std::int64_t lastStart = tag.Size() + 1;
    while (file.FilePos() <= lastStart) {
        const std::string id = file.Read(4);
        file.SetFilePos(file.FilePos() - 4);
        if (id == kPadding) return;
        std::unique_ptr<V2Frame> frame = FrameFor(id);
        const bool read = frame->FrameHeader_GetFrame(file, tag);
        if (frame->FrameHeader_Size() >= FrameHeader::kTooLarge) return;
        if (!read) continue;
        if (frame->FrameHeader_NoFrame()) {
            const std::int64_t next = file.FilePos() + frame->FrameHeader_Size();
            if (next > lastStart || next > file.FileLen()) return;
            file.SetFilePos(next);
            continue;
        }
        frames.Add(std::move(frame), {}, true);
    }
}

} // namespace calyvox
