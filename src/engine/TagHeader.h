// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace calyvox {

class MP3File;

/// The header of an ID3V2 tag and the extended header behind it, kept as bytes. Versions 2.3 and 2.4 are
/// understood; any other is recognised as present. (ID3v2.3.0, 3.1 and 3.2; ID3v2.4.0-structure, 3.1, 3.2)
///
///   offset  size  content
///        0     3  "ID3"
///        3     1  major version
///        4     1  revision
///        5     1  flags: 128 unsynchronisation, 64 extended header, 16 footer (2.4 alone)
///        6     4  size of what follows, without this header and a footer; syncsafe
///
///   extended header, behind it where flag 64 is set
///   2.3     4  size, big-endian, not counting itself; then as many bytes
///   2.4     4  size, syncsafe, counting itself; then size - 4 bytes
class TagHeader {
public:
    static constexpr std::int64_t kLength = 10;
    static constexpr std::int64_t kFooterLength = 10;

    /// Reads from position 1 of an open file and leaves it at the first frame. An unsynchronised 2.3 tag is
    /// copied, cleaned, to a temporary file, and the file is then that copy: its Filename is the temporary
    /// name, its OrigFilename the real one, and UnSync is false. With restoreFile it stays the real file, at
    /// position 11, and UnSync stays true. True on every return; failures of reading, of the temporary file
    /// and of an extended header that is smaller than its own size field (5) or larger than what is left of
    /// the file (7) are thrown, with the file under its real name.
    bool GetHeader(MP3File& file, bool restoreFile);
    /// Header and extended header for a body, without the body. Takes UnSync from the host.
    std::string CreateHeader(const std::string& body);
    /// The whole length on disk of the tag at position 1 of an open file, as it claims; 0 without one.
    static std::int64_t ClaimedLength(MP3File& file);
    /// Undoes the copy of GetHeader: deletes it, opens the real file again, sets UnSync.
    void RestoreFile(MP3File& file);

    std::string SizeAsString() const { return sizeBytes_; }
    /// Failure 6 for 2^29 and more.
    void SetSize(std::int64_t size);
    std::int64_t Size() const { return size_; }
    /// Header, body and footer; 0 when not Present.
    std::int64_t TotalLength() const;

    std::uint8_t Version() const { return version_; }
    void SetVersion(std::uint8_t version);
    bool Present() const { return present_; }
    /// True gives a new tag its identifier and, where it has none, its version.
    void SetPresent(bool present);
    bool FooterPresent() const { return footerPresent_; }
    /// Flips the footer bit at every call, whichever the value: to be called on a change alone.
    void SetFooterPresent(bool present);
    bool UnSync() const { return unSync_; }
    void SetUnSync(bool unSync) { unSync_ = unSync; }
    bool ExtHeaderPresent() const { return extHeaderPresent_; }
    /// True is ignored. False drops the extended header and flips its bit: to be called where there is one.
    void SetExtHeaderPresent(bool present);

private:
    using Reader = std::function<std::string(std::int64_t count)>; // fails for more than there is
    void ReadRecord(MP3File& file);
    void ReadExtendedHeader(const Reader& read);
    std::string ReadCleanBody(MP3File& file) const;
    void OpenCleanCopy(MP3File& file);

    std::string identifier_ = std::string(3, '\0');
    std::uint8_t version_ = 0;
    std::uint8_t revision_ = 0;
    std::uint8_t flags_ = 0;
    std::string sizeBytes_ = std::string(4, '\0');
    std::string extSizeBytes_ = std::string(4, '\0');
    bool extHeaderPresent_ = false;
    bool footerPresent_ = false;
    bool present_ = false;
    bool unSync_ = false;
    std::int64_t size_ = 0;
    std::string extHeader_;
    std::int64_t extSize_ = 0;
};

} // namespace calyvox
