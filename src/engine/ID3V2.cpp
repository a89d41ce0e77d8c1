// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/ID3V2.h"

#include "engine/EngineHost.h"
#include "engine/TagHeader.h"
#include "engine/Unsynchronisation.h"
#include "platform/CodePage.h"

#include <algorithm>
#include <string_view>

namespace calyvox {

namespace {

constexpr std::size_t kGrowthUnit = 1024;

bool MayStandSeveralTimes(const std::string& id) {
    using namespace std::string_view_literals;
    constexpr std::string_view kMultiFrames = "COMM\0WCOM\0POPM\0USLT\0TXXX\0WXXX\0"sv;
    return CodePage::FindNoCase(kMultiFrames, id + '\0') != std::string_view::npos;
}

bool IsOneOf(const std::string& id, std::initializer_list<std::string_view> ids) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

bool EndsInNuls(const std::string& text, std::size_t count) {
    return text.size() >= count && text.find_first_not_of('\0', text.size() - count) == std::string::npos;
}

// Pads a body that does not fit its room, so that header, body and footer are a multiple of the unit. The
// frame bytes are never cut into: only NULs that were appended here are taken off again.
void Grow(std::string& body, std::size_t headerAndFooter) {
    const std::size_t appended = kGrowthUnit - body.size() % kGrowthUnit;
    body.append(appended, '\0');
    if (appended >= headerAndFooter && EndsInNuls(body, headerAndFooter + 1))
        body.resize(body.size() - headerAndFooter);
    else
        body.append(kGrowthUnit - headerAndFooter, '\0');
}

} // namespace

V2Frame& ID3V2::Add(std::unique_ptr<V2Frame> frame, const std::string& key, bool loading) {
    if (!loading) {
        bool isNew = true;
        if (!MayStandSeveralTimes(frame->FrameHeader_FrameID())) {
            isNew = !ReplaceSingle(*frame);
        } else {
            if (Host().SingleCOMMGenre) KeepOneComment(*frame);
            isNew = !ReplaceMulti(*frame);
        }
        if (!frame->Remove() && isNew) changed_ = true;
    }
    return frames_.Add(std::move(frame), key);
}

// Takes the first frame of the same ID out; false without one.
bool ID3V2::ReplaceSingle(const V2Frame& frame) {
    for (std::int64_t i = 1; i <= Count(); ++i) {
        if (Item(i).FrameHeader_FrameID() != frame.FrameHeader_FrameID()) continue;
        if (!Item(i).SameValue(frame) || frame.Remove()) changed_ = true;
        Remove(i);
        return true;
    }
    return false;
}

// A new comment drives out all comments about something else.
void ID3V2::KeepOneComment(const V2Frame& frame) {
    for (std::int64_t i = Count(); i >= 1; --i) {
        const bool bothComments =
            frame.FrameHeader_FrameID() == "COMM" && Item(i).FrameHeader_FrameID() == "COMM";
        if (!bothComments || Item(i).SameSubject(frame)) continue;
        Remove(i);
        changed_ = true;
    }
}

bool ID3V2::ReplaceMulti(const V2Frame& frame) {
    const std::string& id = frame.FrameHeader_FrameID();
    for (std::int64_t i = 1; i <= Count(); ++i) {
        if (Item(i).FrameHeader_FrameID() != id || !Item(i).SameSubject(frame)) continue;
        if (!IsOneOf(id, {"COMM", "USLT", "WCOM", "POPM", "TXXX", "WXXX"})) continue;
        // An address has no value but itself, so that neither its like nor its removal is a change.
        if (id != "WCOM" && (!Item(i).SameValue(frame) || frame.Remove())) changed_ = true;
        Remove(i);
        return true;
    }
    return false;
}

void ID3V2::ClearFrames() {
    frames_.RemoveIf([](const V2Frame& frame) { return frame.Remove(); });
}

std::string ID3V2::CreateID3V2(TagHeader& newHeader, const TagHeader& oldHeader) {
    std::string body;
    for (V2Frame& frame : frames_)
        body += frame.CreateFrame(newHeader);
    if (newHeader.Version() == 3 && Host().WriteUnSync) body = Unsynchronise(body);

    const bool footer = newHeader.FooterPresent();
    std::int64_t room = oldHeader.Size();
    if (oldHeader.FooterPresent()) room += TagHeader::kFooterLength;
    if (footer) room -= TagHeader::kFooterLength;
    if (static_cast<std::int64_t>(body.size()) <= room)
        body.resize(static_cast<std::size_t>(room), '\0');
    else
        Grow(body, TagHeader::kLength + (footer ? TagHeader::kFooterLength : 0));

    std::string tag = newHeader.CreateHeader(body) + body;
    // The footer is the header's ten bytes backwards.
    if (footer) tag.append(tag.rend() - TagHeader::kLength, tag.rend());
    return tag;
}

} // namespace calyvox
