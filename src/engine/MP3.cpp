// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/MP3.h"

#include "engine/EngineHost.h"
#include "engine/TagReader.h"
#include "engine/TagWriter.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"

namespace calyvox {

MP3::MP3() : id3v2_(std::make_unique<calyvox::ID3V2>()), file_(std::make_unique<MP3File>()) {}

std::uint8_t MP3::ExploreMP3(const std::string& path) {
    std::uint8_t status = 0;
    changed_ = false;
    file_ = std::make_unique<MP3File>();
    file_->SetFilename(path);
    if (!file_->OpenFile() || file_->FileLen() < MP3File::kLeastLength) return status;
    status |= kOpened;
    Host().ReportLine("Exploring: " + file_->Filename());
    id3v2_ = std::make_unique<calyvox::ID3V2>();
    tagHeader_ = TagHeader();
    ReadID3V2(status);
    mp3Header_ = MP3Header();
    if (mp3Header_.GetMP3Header(*file_, tagHeader_)) status |= kHeaderRead;
    id3v1_ = ID3V1();
    if (id3v1_.GetTag(*file_)) status |= kID3V1Read;
    file_->CloseFile();
    return status;
}

void MP3::ReadID3V2(std::uint8_t& status) {
    const bool read = tagHeader_.GetHeader(*file_, false);
    const bool clean3 = tagHeader_.Version() == 3 && !tagHeader_.UnSync();
    if (read && tagHeader_.Present() && (tagHeader_.Version() == 4 || clean3)) {
        status |= kFramesRead;
        try {
            ReadFrames(*file_, tagHeader_, *id3v2_);
        } catch (const Failure&) {
            // No copy is left behind, and the object stands for the real file.
            if (HoldsCopy()) tagHeader_.RestoreFile(*file_);
            throw;
        }
    }
    if (!CodePage::EndsWithNoCase(file_->Filename(), ".mp3") && tagHeader_.Version() == 3) {
        tagHeader_.RestoreFile(*file_);
        status |= kCleanedCopy;
    }
}

bool MP3::HoldsCopy() const { return !file_->OrigFilename().empty(); }

bool MP3::WriteTags(bool, bool showProgress) {
    return TagWriter(*file_, id3v1_, tagHeader_, *id3v2_, showProgress).WriteTags();
}

void MP3::RemoveID3V1() { id3v1_ = ID3V1(); }

void MP3::RemoveID3V2() {
    id3v2_ = std::make_unique<calyvox::ID3V2>();
    tagHeader_ = TagHeader();
}

} // namespace calyvox
