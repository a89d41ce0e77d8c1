// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ID3V1.h"
#include "engine/ID3V2.h"
#include "engine/TagHeader.h"

#include <cstdint>

namespace calyvox {

class Failure;
class MP3File;

/// Brings a file on the disk in line with its tags in memory. The file after it, front to back: ID3V2 tag,
/// audio, ID3V1 record. A tag that fits its old room is written in place; otherwise the file is rewritten.
/// Where the tags on disk claim more bytes than the file has, nothing is written.
class TagWriter {
public:
    TagWriter(MP3File& file, const ID3V1& id3v1, TagHeader& tagHeader, ID3V2& id3v2, bool showProgress)
        : file_(file), id3v1_(id3v1), tagHeader_(tagHeader), id3v2_(id3v2), showProgress_(showProgress) {}

    /// True when everything is written. Every failure ends here: 75 and 70 (write protected or used) and 71
    /// (no room) show a box, any other is silent.
    bool WriteTags();

private:
    void RenamePending();
    void OpenForWriting();
    void WriteID3V1();
    void WriteID3V2();
    void CutRemovedTags();
    void ReportFailure(const Failure& failure) const;

    MP3File& file_;
    const ID3V1& id3v1_;
    TagHeader& tagHeader_;
    ID3V2& id3v2_;
    bool showProgress_;
    std::int64_t headCut_ = 0; // bytes to take off the start and the end of the file
    std::int64_t tailCut_ = 0;
};

} // namespace calyvox
