// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/FrameHeader.h"

#include <cstdint>
#include <string>

namespace calyvox {

/// One ID3V2 frame. This class has what all six kinds share: reading a body (unsynchronisation,
/// compression, one NUL cut at its end) and building a frame by the tag's version (flags, unsynchronisation,
/// terminator). A kind says only how its body is laid out. Texts are the body's bytes, whatever the encoding
/// byte says. Nothing is ever written compressed.
class V2Frame {
public:
    V2Frame() = default;
    V2Frame(const V2Frame&) = delete;
    V2Frame& operator=(const V2Frame&) = delete;
    virtual ~V2Frame() = default;

    /// The whole frame, header included; empty for a frame that has nothing to say and for a tag that is
    /// neither version 3 nor 4. Failure 5 where fewer than 2 bytes are to be unsynchronised.
    std::string CreateFrame(const TagHeader& tag);
    /// To be dropped at the next ClearFrames.
    bool Remove() const { return remove_; }
    void SetRemove(bool remove) { remove_ = remove; }
    /// Reads header and body at the file's position. The result is that of the header; a body that cannot be
    /// read or parsed leaves the frame empty.
    bool FrameHeader_GetFrame(MP3File& file, const TagHeader& tag);

    void FrameHeader_SetSize(std::int64_t size, const TagHeader& tag) { header_.SetSize(size, tag); }
    std::string FrameHeader_SizeAsString() const { return header_.SizeAsString(); }
    bool FrameHeader_NoFrame() const { return header_.NoFrame(); }
    bool FrameHeader_Encrypted() const { return header_.Encrypted(); }
    bool FrameHeader_Compressed() const { return header_.Compressed(); }
    std::int64_t FrameHeader_Size() const { return header_.Size(); }
    bool FrameHeader_UnSync() const { return header_.UnSync(); }
    const std::string& FrameHeader_FrameID() const { return header_.FrameID(); }
    void SetFrameHeader_FrameID(const std::string& id) { header_.SetFrameID(id); }
    std::uint8_t FrameHeader_FlagByte1() const { return header_.FlagByte1(); }
    void SetFrameHeader_FlagByte1(std::uint8_t flags) { header_.SetFlagByte1(flags); }
    std::uint8_t FrameHeader_FlagByte2() const { return header_.FlagByte2(); }
    void SetFrameHeader_FlagByte2(std::uint8_t flags) { header_.SetFlagByte2(flags); }

    /// For two frames of one kind that may stand in a tag several times: whether they are about the same
    /// thing, so that one replaces the other.
    virtual bool SameSubject(const V2Frame& other) const;
    /// For two frames of one kind: whether they say the same about it.
    virtual bool SameValue(const V2Frame& other) const = 0;

protected:
    /// Bodies below this many bytes are not read.
    virtual std::int64_t LeastSize() const = 0;
    /// Whether a body that is too short, or that failed, is stepped over, by its size from where the file
    /// stands then.
    virtual bool StepsOver() const = 0;
    /// Takes a clean, expanded body apart. May throw.
    virtual void Parse(std::string body) = 0;
    /// Empties what a body that does not expand leaves empty.
    virtual void Clear() = 0;
    /// Empties what a body that is too short, or that failed otherwise, leaves empty.
    virtual void ClearFailed() { Clear(); }
    /// The text at the body's end: a NUL ends it in version 2.4 and none in 2.3.
    virtual std::string& Tail() = 0;
    /// Whether Tail loses one NUL after reading, and before writing version 2.3.
    virtual bool CutsTailOnReading() const { return true; }
    virtual bool CutsTailOnWriting() const { return true; }

    virtual bool IsEmpty() const = 0;
    virtual std::string Body() const = 0;
    /// The bytes of two-byte text units in the body, 0 where its text is of single bytes. An odd number gets
    /// one NUL more at the end: a half unit would be lost to every other reader.
    virtual std::size_t WideTextLength() const { return 0; }
    /// Format flags that a written 2.4 frame loses.
    virtual std::uint8_t ClearedFlags4() const { return 8 | 2 | 1; }

private:
    void ReadBody(MP3File& file);
    static bool Expand(std::string& body);
    void Fail(MP3File& file);
    void CutTailNul();
    std::string Create3(const TagHeader& tag);
    std::string Create4(const TagHeader& tag);
    std::string Build(std::uint8_t flagByte2, const std::string& body, const TagHeader& tag);

    FrameHeader header_;
    bool remove_ = false;
};

/// Whether an encoding byte stands for text units of two bytes.
inline bool IsWide(std::uint8_t textEnc) { return textEnc == 1 || textEnc == 2; }

} // namespace calyvox
