// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/V2Frame.h"

#include "engine/Bytes.h"
#include "engine/EngineHost.h"
#include "engine/MP3File.h"
#include "engine/TagHeader.h"
#include "engine/Unsynchronisation.h"
#include "engine/modZLib.h"
#include "platform/Failure.h"

#include <new>
#include <utility>

namespace calyvox {

namespace {

constexpr std::uint8_t kCompressed3 = 128;
constexpr std::uint8_t kUnSync4 = 2;
constexpr std::size_t kExpectedLength = 4;

bool EndsInNul(const std::string& text) { return !text.empty() && text.back() == '\0'; }

} // namespace

bool V2Frame::FrameHeader_GetFrame(MP3File& file, const TagHeader& tag) {
    bool result = false;
    try {
        result = header_.GetFrame(file, tag);
        if (result && !header_.NoFrame()) ReadBody(file);
    } catch (const Failure&) {
        Fail(file);
    } catch (const std::bad_alloc&) {
        Fail(file);
    }
    if (CutsTailOnReading()) CutTailNul();
    return result;
}

void V2Frame::ReadBody(MP3File& file) {
    if (header_.Size() < LeastSize()) {
        Fail(file);
        return;
    }
    std::string body = file.Read(header_.Size());
    if (header_.UnSync()) body = Resynchronise(body);
    if (header_.Compressed() && !Expand(body))
        Clear();
    else
        Parse(std::move(body));
}

// The expected length is big-endian in both versions. False for what zlib refuses.
bool V2Frame::Expand(std::string& body) {
    const std::int64_t expected = Bytes::FromBigEndian(Bytes::TakeFront(body, kExpectedLength));
    return ZLibDecompress(body, expected) == 0;
}

void V2Frame::Fail(MP3File& file) {
    if (StepsOver()) file.SetFilePos(file.FilePos() + header_.Size());
    ClearFailed();
}

void V2Frame::CutTailNul() {
    if (EndsInNul(Tail())) Tail().pop_back();
}

std::string V2Frame::CreateFrame(const TagHeader& tag) {
    if (IsEmpty()) return {};
    if (tag.Version() == 3) return Create3(tag);
    if (tag.Version() == 4) return Create4(tag);
    return {};
}

std::string V2Frame::Create3(const TagHeader& tag) {
    if (CutsTailOnWriting()) CutTailNul();
    std::string body = Body();
    if (WideTextLength() % 2 != 0) body += '\0';
    return Build(header_.FlagByte2() & ~kCompressed3, body, tag);
}

std::string V2Frame::Create4(const TagHeader& tag) {
    auto flags = static_cast<std::uint8_t>(header_.FlagByte2() & ~ClearedFlags4());
    std::string body = Body();
    std::string terminator = EndsInNul(Tail()) ? "" : std::string(1, '\0');
    if (WideTextLength() > 0 && (WideTextLength() + terminator.size()) % 2 != 0) terminator += '\0';
    if (Host().WriteUnSync) {
        flags |= kUnSync4;
        body = Unsynchronise(body);
        // A reader takes the NUL behind FF for one that unsynchronisation put in.
        if (WideTextLength() > 0 && body.back() == '\xFF') terminator += '\0';
    }
    return Build(flags, body + terminator, tag);
}

// The header keeps its own flags as they were read; only the frame built here has them changed.
std::string V2Frame::Build(std::uint8_t flagByte2, const std::string& body, const TagHeader& tag) {
    header_.SetSize(static_cast<std::int64_t>(body.size()), tag);
    return header_.FrameID() + header_.SizeAsString() + static_cast<char>(header_.FlagByte1()) +
           static_cast<char>(flagByte2) + body;
}

bool V2Frame::SameSubject(const V2Frame&) const { return true; }

} // namespace calyvox
