// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/TagWriter.h"

#include "engine/CutFile.h"
#include "engine/EngineHost.h"
#include "engine/FileRewrite.h"
#include "engine/MP3File.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"

#include <new>

namespace calyvox {

namespace {

constexpr const char* kSource = "WriteTags";
constexpr int kExclamation = 48;

[[noreturn]] void ThrowNoAccess() { throw Failure(Failure::kPathAccess, kSource); }

ID3V1 ReadID3V1OnDisk(MP3File& file) {
    ID3V1 onDisk;
    if (!onDisk.GetTag(file)) ThrowNoAccess();
    return onDisk;
}

// A tag that runs over the file's end, or into the other tag, leaves nobody able to tell where the audio is.
void RefuseOverlongTags(MP3File& file) {
    if (file.FileLen() < MP3File::kLeastLength) return; // refused for that already, or soon
    const std::int64_t tail = ReadID3V1OnDisk(file).Present() ? ID3V1::kLength : 0;
    if (TagHeader::ClaimedLength(file) + tail > file.FileLen()) ThrowNoAccess();
}

} // namespace

bool TagWriter::WriteTags() {
    const BinaryFile::Keep keep(file_.File());
    try {
        if (showProgress_) Host().WriteBarValue(0);
        RenamePending();
        OpenForWriting();
        WriteID3V1();
        file_.CloseFile();
        static_cast<void>(file_.OpenFileLocked());
        WriteID3V2();
        file_.CloseFile();
        static_cast<void>(file_.OpenFile());
        file_.CloseFile();
        CutRemovedTags();
        static_cast<void>(file_.OpenFile());
        file_.CloseFile();
        return true;
    } catch (const Failure& failure) {
        ReportFailure(failure);
    } catch (const std::bad_alloc&) {
        ReportFailure(Failure(Failure::kOutOfMemory, kSource));
    }
    file_.CloseFile();
    return false;
}

void TagWriter::RenamePending() {
    if (file_.OrigFilename().empty()) return;
    if (!file_.OpenFileLocked()) ThrowNoAccess();
    RefuseOverlongTags(file_);
    file_.CloseFile();
    try {
        FileSystem::Rename(file_.OrigFilename(), file_.Filename());
    } catch (const Failure& failure) {
        if (failure.Number() == Failure::kFileExists) ThrowNoAccess();
        throw;
    }
    file_.File().MovedTo(file_.Filename());
    file_.SetOrigFilename({});
}

void TagWriter::OpenForWriting() {
    if (!file_.OpenFileLocked() || file_.FileLen() < MP3File::kLeastLength) ThrowNoAccess();
    RefuseOverlongTags(file_);
}

void TagWriter::WriteID3V1() {
    const bool onDisk = ReadID3V1OnDisk(file_).Present();
    if (onDisk && id3v1_.Present()) {
        file_.SetFilePos(file_.FileLen() - (ID3V1::kLength - 1));
        file_.Write(id3v1_.CreateTag());
    } else if (onDisk) {
        tailCut_ = ID3V1::kLength;
    } else if (id3v1_.Present()) {
        file_.SetFilePos(file_.FileLen() + 1);
        file_.Write(id3v1_.CreateTag());
    }
}

void TagWriter::WriteID3V2() {
    TagHeader oldHeader;
    if (!oldHeader.GetHeader(file_, true)) ThrowNoAccess();
    const std::int64_t oldLength = oldHeader.TotalLength();
    if (!tagHeader_.Present()) {
        headCut_ = oldLength;
        return;
    }
    const std::string tag = id3v2_.CreateID3V2(tagHeader_, oldHeader);
    if (oldHeader.Present() && static_cast<std::int64_t>(tag.size()) <= oldLength) {
        file_.SetFilePos(1);
        file_.Write(tag);
    } else {
        RewriteFile(file_, tag, oldLength, file_.FileLen() - oldLength, showProgress_);
    }
}

void TagWriter::CutRemovedTags() {
    if (headCut_ + tailCut_ == 0) return;
    if (!CutFile(file_, headCut_, tailCut_, showProgress_)) ThrowNoAccess();
}

void TagWriter::ReportFailure(const Failure& failure) const {
    Host().ReportLine("clsMP3.WriteTags - Error: " + failure.Text() + " - " +
                      std::to_string(failure.Number()));
    if (failure.Number() == Failure::kPathAccess || failure.Number() == Failure::kPermissionDenied)
        Host().ShowMessage("Error while writing to file! Perhaps the file\r" + file_.Filename() +
                               "\ris write protected or used.",
                           kExclamation, "Access denied!");
    else if (failure.Number() == Failure::kDiskNotReady)
        Host().ShowMessage("Error while writing to file! Perhaps there is\rnot enough free disc space.",
                           kExclamation, "Writing failed.");
}

} // namespace calyvox
