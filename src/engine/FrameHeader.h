// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace calyvox {

class MP3File;
class TagHeader;

/// The 10 bytes in front of a frame's body. (ID3v2.3.0, 3.3; ID3v2.4.0-structure, 4)
///
///   offset  size  content
///        0     4  frame ID
///        4     4  body size: 2.3 big-endian, 2.4 syncsafe
///        8     1  status flags, carried alone
///        9     1  format flags: 2.3: 128 compressed, 64 or 32 encrypted;
///                 2.4: 8 and 1 together compressed, 64 encrypted, 2 unsynchronised
///
/// The group bit counts as Encrypted in both versions, which is only reported: nothing is decrypted.
class FrameHeader {
public:
    static constexpr std::int64_t kLength = 10;
    /// Sizes from here on do not fit the 32-bit signed numbers of the format's readers.
    static constexpr std::int64_t kTooLarge = std::int64_t{1} << 31;

    /// Reads at the file's position and leaves it at the body. Always true; a failed read is thrown.
    bool GetFrame(MP3File& file, const TagHeader& tag);
    /// Sets the size bytes too, by the tag's version; they stay as they were for any but 3 and 4.
    void SetSize(std::int64_t size, const TagHeader& tag);
    std::string SizeAsString() const { return sizeBytes_; }

    /// The ID is neither known nor one of those that begin with X, Y or Z. Flags are not read then.
    bool NoFrame() const { return noFrame_; }
    bool Encrypted() const { return encrypted_; }
    bool Compressed() const { return compressed_; }
    bool UnSync() const { return unSync_; }
    std::int64_t Size() const { return size_; }
    const std::string& FrameID() const { return id_; }
    /// Keeps the first four characters, in upper case.
    void SetFrameID(const std::string& id);
    std::uint8_t FlagByte1() const { return flagByte1_; }
    void SetFlagByte1(std::uint8_t flags) { flagByte1_ = flags; }
    std::uint8_t FlagByte2() const { return flagByte2_; }
    /// Does not touch the booleans.
    void SetFlagByte2(std::uint8_t flags) { flagByte2_ = flags; }

private:
    void ReadFlags(std::uint8_t version);

    std::string id_ = std::string(4, '\0');
    std::string sizeBytes_ = std::string(4, '\0');
    std::uint8_t flagByte1_ = 0;
    std::uint8_t flagByte2_ = 0;
    std::int64_t size_ = 0;
    bool compressed_ = false;
    bool encrypted_ = false;
    bool noFrame_ = false;
    bool unSync_ = false;
};

} // namespace calyvox
