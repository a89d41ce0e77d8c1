// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "Contests.h"

#include "automation/MassUpdate.h"
#include "engine/MP3.h"
#include "engine/V2TextFrame.h"
#include "platform/HostPath.h"
#include "support/TempFolder.h"

#include <fcntl.h>
#include <mpegfile.h>
#include <tag.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <vector>

namespace calyvox::Bench {

namespace {

using PeerFile = TagLib::MPEG::File;
using TitleMaker = std::function<std::string()>;

void Require(bool worked) {
    if (!worked) throw std::runtime_error("a file was not read or written as it should");
}

/// A text of the length that is another one at every call.
TitleMaker NewTitles(std::size_t length) {
    return [length, round = 0]() mutable {
        std::string text = std::to_string(++round);
        text.resize(length, '-');
        return text;
    };
}

/// A text that outgrows any padding at every call.
TitleMaker GrowingTitles() {
    return [length = std::size_t{0}]() mutable { return std::string(length += 6000, 'x'); };
}

void SetTitle(MP3& mp3, const std::string& title) {
    auto frame = std::make_unique<V2TextFrame>();
    frame->SetFrameHeader_FrameID("TIT2");
    frame->SetContent(title);
    mp3.ID3V2().Add(std::move(frame), {}, false);
}

bool SaveByPeer(PeerFile& file) {
    return file.save(PeerFile::ID3v1 | PeerFile::ID3v2, TagLib::File::StripNone, TagLib::ID3v2::v3,
                     TagLib::File::DoNotDuplicate);
}

/// An open file of the host, without any of this program's care.
class HostFile {
public:
    HostFile(const std::string& path, int flags) : handle_(::open(path.c_str(), flags, 0666)) {
        Require(handle_ >= 0);
    }
    ~HostFile() { ::close(handle_); }
    HostFile(const HostFile&) = delete;
    HostFile& operator=(const HostFile&) = delete;
    std::size_t Read(std::string& bytes, std::size_t offset) const {
        const ssize_t got = ::pread(handle_, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        Require(got >= 0);
        return static_cast<std::size_t>(got);
    }
    void Write(const std::string& bytes, std::size_t length, std::size_t offset) const {
        Require(::pwrite(handle_, bytes.data(), length, static_cast<off_t>(offset)) ==
                static_cast<ssize_t>(length));
    }
    void Flush() const { Require(::fsync(handle_) == 0); }

private:
    int handle_;
};

void ReadBothEnds(const Library& files) {
    std::string head(std::size_t{16} * 1024, '\0');
    std::string tail(128, '\0');
    for (const std::string& path : files.HostPaths()) {
        const HostFile file(path, O_RDONLY);
        file.Read(head, 0);
        file.Read(tail, files.FileLength() - tail.size());
    }
}

void ReadAndWriteTags(const Library& files) {
    std::string tag(files.TagLength(), '\0');
    for (const std::string& path : files.HostPaths()) {
        const HostFile file(path, O_RDWR);
        file.Read(tag, 0);
        file.Write(tag, tag.size(), 0);
    }
}

void CopyOverItself(const std::string& path) {
    const std::string copyPath = path + ".tmp";
    std::string block(std::size_t{64} * 1024, '\0');
    const HostFile file(path, O_RDONLY);
    const HostFile copy(copyPath, O_WRONLY | O_CREAT | O_TRUNC);
    std::size_t offset = 0;
    while (const std::size_t got = file.Read(block, offset)) {
        copy.Write(block, got, offset);
        offset += got;
    }
    copy.Flush();
    Require(std::rename(copyPath.c_str(), path.c_str()) == 0);
}

Contestant SavingByUs(const Library& files, const TitleMaker& titles) {
    auto read = std::make_shared<std::vector<MP3>>();
    const auto prepare = [&files, read] {
        for (const std::string& path : files.Paths())
            Require(read->emplace_back().ExploreMP3(path) >= MP3::kOpened);
    };
    const auto run = [read, titles]() mutable {
        const std::string title = titles();
        for (MP3& mp3 : *read) {
            SetTitle(mp3, title);
            Require(mp3.WriteTags(true, false));
        }
        read->clear();
    };
    return {run, prepare};
}

Contestant SavingByPeer(const Library& files, const TitleMaker& titles) {
    auto open = std::make_shared<std::vector<std::unique_ptr<PeerFile>>>();
    const auto prepare = [&files, open] {
        for (const std::string& path : files.HostPaths())
            open->push_back(std::make_unique<PeerFile>(path.c_str()));
    };
    const auto run = [open, titles]() mutable {
        const std::string title = titles();
        for (const auto& file : *open) {
            file->tag()->setTitle(title);
            Require(SaveByPeer(*file));
        }
        open->clear();
    };
    return {run, prepare};
}

// Dated back: a file that was changed just now is read anew at every access.
void WriteDataFile(const std::string& hostPath, const Library& files, const std::string& title) {
    std::string text = "[Files]\r\nCount=" + std::to_string(files.Count()) + "\r\n";
    for (std::size_t i = 0; i < files.Count(); ++i)
        text += "[File" + std::to_string(i + 1) + "]\r\nPath=" + files.HostPaths()[i] + "\r\nTIT2=" + title +
                "\r\n";
    WriteHostFile(hostPath, text);
    std::filesystem::last_write_time(hostPath,
                                     std::filesystem::file_time_type::clock::now() - std::chrono::minutes(1));
}

constexpr std::size_t kTitleLength = 20;

} // namespace

Contest Listing(const std::string& name, const Libraries& files) {
    const auto ours = [&] {
        for (const std::string& path : files.Ours.Paths())
            Require(MP3().ExploreMP3(path) >= MP3::kOpened);
    };
    const auto peer = [&] {
        for (const std::string& path : files.Peer.HostPaths())
            Require(PeerFile(path.c_str(), true, TagLib::AudioProperties::Fast).isValid());
    };
    return {name, files.Ours.Count(), {ours}, {peer}, {[&] { ReadBothEnds(files.Floor); }}};
}

Contest SavingInPlace(const Libraries& files) {
    return {"save in place",
            files.Ours.Count(),
            SavingByUs(files.Ours, NewTitles(kTitleLength)),
            SavingByPeer(files.Peer, NewTitles(kTitleLength)),
            {[&] { ReadAndWriteTags(files.Floor); }}};
}

Contest Growing(const Libraries& files) {
    const auto floor = [&] {
        for (const std::string& path : files.Floor.HostPaths())
            CopyOverItself(path);
    };
    return {"save a tag that outgrows its room",
            files.Ours.Count(),
            SavingByUs(files.Ours, GrowingTitles()),
            SavingByPeer(files.Peer, GrowingTitles()),
            {floor}};
}

Contest UpdatingAll(const Libraries& files, const std::string& hostFolder) {
    const std::string dataFile = hostFolder + "/update.ini";
    const auto prepare = [&files, dataFile, titles = NewTitles(kTitleLength)]() mutable {
        WriteDataFile(dataFile, files.Ours, titles());
    };
    const auto ours = [&files, dataFile] {
        RowList rows;
        MassUpdate update(HostPath::FromHost(dataFile), rows);
        update.Run([](std::int32_t, const RowList::Row&) {});
        Require(rows.Count() == files.Ours.Count() && update.Errors() == 0);
    };
    const auto peer = [&files, titles = NewTitles(kTitleLength)]() mutable {
        const std::string title = titles();
        for (const std::string& path : files.Peer.HostPaths()) {
            PeerFile file(path.c_str());
            file.tag()->setTitle(title);
            Require(SaveByPeer(file));
        }
    };
    return {
        "mass update", files.Ours.Count(), {ours, prepare}, {peer}, {[&] { ReadAndWriteTags(files.Floor); }}};
}

} // namespace calyvox::Bench
