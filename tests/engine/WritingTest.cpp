// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/EngineFixture.h"
#include "support/FailingCalls.h"

#include <filesystem>
#include <set>

using namespace calyvox;
namespace fs = std::filesystem;

namespace {

const std::string kAudio = build::Audio(200); // longer than one copy block

std::string TagOf(std::size_t size, int version = 3, std::uint8_t flags = 0, const std::string& more = "") {
    std::string body = build::Text(version, "TIT2", "Title") + more;
    body.resize(size, '\0');
    return build::Tag(version, body, flags);
}

std::string Picture(std::size_t size) { return build::Frame(3, "APIC", std::string(size, 'p')); }

// Deeds are written a letter each: h a tag header alone, p a picture of 100 bytes, g one of 900, t no tag, x
// no extended header, s the record set, r no record, n renamed to b.mp3; and what is in the way then: b that
// there is a b.mp3, o that a.mp3 is read-only, l that its temporary is a link, u that another one uses it.
class WritingTest : public EngineTest {
protected:
    void Prepare(const std::string& bytes, const std::string& deeds) {
        file_.CloseFile();
        file_.SetFilename(folder_.Inside("a.mp3"));
        for (const char* name : {"a.mp3", "b.mp3", "a.mp3.tmp"})
            fs::remove(folder_.Host(name));
        Explore(bytes);
        for (const char deed : deeds)
            Do(deed);
    }
    void Do(char deed) {
        const std::size_t picture = deed == 'p' ? 100 : deed == 'g' ? 900 : 0;
        if (picture != 0) mp3_.ID3V2().Add(Make("APIC", std::string(picture, 'p')), {}, false);
        if (picture != 0 || deed == 'h') mp3_.SetTagHeader_Present(true);
        if (deed == 't') mp3_.RemoveID3V2();
        if (deed == 'x') mp3_.SetTagHeader_ExtHeaderPresent(false);
        if (deed == 's') mp3_.SetID3V1_Present(true);
        if (deed == 's') mp3_.SetID3V1_Title("Other");
        if (deed == 'r') mp3_.RemoveID3V1();
        if (deed == 'n') mp3_.SetMP3File_OrigFileName(mp3_.MP3File_FileName());
        if (deed == 'n') mp3_.SetMP3File_FileName(folder_.Inside("b.mp3"));
        if (deed == 'b') folder_.Write("b.mp3", "another");
        if (deed == 'o') fs::permissions(folder_.Host("a.mp3"), fs::perms::owner_read);
        if (deed == 'l') fs::create_symlink("b.mp3", folder_.Host("a.mp3.tmp"));
        if (deed == 'u' && !file_.OpenFileLocked()) ADD_FAILURE();
    }
    bool Write() { return mp3_.WriteTags(true, true); }
    void ExpectWritten(const std::string& before, const std::string& deeds, const std::string& after) {
        Prepare(before, deeds);
        EXPECT_TRUE(Write() && Disk() == after && mp3_.MP3File_OrigFileName().empty()) << deeds;
        EXPECT_EQ(folder_.Listing(), deeds.find('n') == std::string::npos ? "a.mp3 " : "b.mp3 ") << deeds;
    }
    void ExpectRefused(const std::string& bytes, const std::string& deeds) {
        Prepare(bytes, deeds);
        const std::string listing = folder_.Listing(), another = folder_.Read("b.mp3");
        host_.Boxes.clear();
        EXPECT_FALSE(Write()) << deeds;
        EXPECT_EQ(host_.Boxes, "Access denied!|Error while writing to file! Perhaps the file\r" +
                                   mp3_.MP3File_FileName() + "\ris write protected or used.|48\n");
        EXPECT_TRUE(folder_.Read("a.mp3") == bytes && folder_.Read("b.mp3") == another) << deeds;
        EXPECT_EQ(folder_.Listing(), listing) << deeds;
    }
    std::string Disk() const { return folder_.Read(fs::exists(folder_.Host("a.mp3")) ? "a.mp3" : "b.mp3"); }
    std::string TagOnDisk() const { return Disk().substr(0, Disk().find(kAudio.substr(0, 400))); }
};

TEST_F(WritingTest, ATagThatFitsIsWrittenInPlace) {
    Prepare(TagOf(2038, 4, 16) + build::Nuls(10) + kAudio, "p");
    fs::create_hard_link(folder_.Host("a.mp3"), folder_.Host("same"));
    EXPECT_TRUE(Write());
    EXPECT_NE(folder_.Read("same").find(std::string(100, 'p')), std::string::npos);
    EXPECT_TRUE(TagOnDisk().size() == 2058 && Disk() == TagOnDisk() + kAudio);
}

TEST_F(WritingTest, TagGrowsToAMultipleOf1024) {
    for (const std::string& old : {""s, TagOf(50), TagOf(50, 4, 16) + build::Nuls(10), TagOf(50, 3, 128)})
        for (const bool unSync : {false, true}) {
            Host().WriteUnSync = unSync;
            Prepare(old + kAudio, "g");
            for (int save = 0; save < 2; ++save) {
                EXPECT_TRUE(Write());
                EXPECT_EQ(TagOnDisk().size(), 1024U);
                EXPECT_EQ((TagOnDisk()[5] & 0x80) != 0, unSync);
                EXPECT_TRUE(Disk() == TagOnDisk() + kAudio);
            }
        }
}

TEST_F(WritingTest, EachPartIsAddedReplacedOrRemoved) {
    const std::string tag = TagOf(500), footer = TagOf(500, 4, 16) + build::Nuls(10);
    ExpectWritten(kAudio, "", kAudio);
    ExpectWritten(kAudio, "h", build::Tag(3, "") + kAudio);
    ExpectWritten(tag + kAudio, "p", TagOf(500, 3, 0, Picture(100)) + kAudio);
    ExpectWritten(tag + kAudio, "gn", TagOf(1014, 3, 0, Picture(900)) + kAudio);
    ExpectWritten(tag + kAudio, "tsn", kAudio + build::Id3v1({"Other", "", "", "", ""}));
    ExpectWritten(kRecord + kAudio + kRecord, "s", kRecord + kAudio + "TAGOther" + kRecord.substr(8));
    ExpectWritten(tag + kAudio + kRecord, "r", tag + kAudio);
    ExpectWritten(tag + kAudio + kRecord, "t", kAudio + kRecord);
    ExpectWritten(footer + kAudio + kRecord, "tr", kAudio);
    ExpectWritten(TagOf(90, 2) + kAudio, "p", build::Tag(2, build::Nuls(90)) + kAudio); // no version to write
}

TEST_F(WritingTest, AnExtendedHeaderIsKeptAndCountsBesidesTheRoom) {
    const std::string body = build::BigEndian(2) + "ex" + TagOf(200).substr(10);
    ExpectWritten(build::Tag(3, body, 64) + kAudio, "", build::Tag(3, body + build::Nuls(6), 64) + kAudio);
    ExpectWritten(build::Tag(3, body, 64) + kAudio, "x", TagOf(206) + kAudio);
    ExpectWritten(build::Tag(3, build::BigEndian(2) + "\xFF\0e"s + build::Nuls(9), 192) + kAudio, "t",
                  kAudio);
}

TEST_F(WritingTest, WhatCannotBeWrittenSafelyIsRefusedUnchanged) {
    for (const char* deeds : {"po", "pno", "pnb", "pu", "gbl"})
        ExpectRefused(TagOf(500) + kAudio + kRecord, deeds);
    ExpectRefused(build::Nuls(400), "s");
    // Tags that claim more than there is, by far, by one byte, by one byte of the footer or of the record.
    ExpectRefused(TagOf(500).replace(8, 1, "\x7F") + build::Nuls(600), "ps");
    ExpectRefused(TagOf(500).substr(0, 509), "s");
    ExpectRefused(TagOf(500, 4, 16) + build::Nuls(9), "s");
    ExpectRefused(TagOf(500).substr(0, 509) + kRecord, "p");
    ExpectRefused(TagOf(500, 2).substr(0, 509), "sn");
    ExpectWritten(TagOf(391), "", TagOf(391)); // all of it tag
}

TEST_F(WritingTest, ARewriteKeepsLinkAndModeAndTakesAnOldTemporary) {
    folder_.Write("real.tmp", "left over");
    fs::create_symlink("real", folder_.Host("a.mp3"));
    folder_.Write("a.mp3", kAudio);
    const fs::perms mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_exec;
    fs::permissions(folder_.Host("real"), mode);
    mp3_.ExploreMP3(folder_.Inside("a.mp3"));
    Do('p');
    EXPECT_TRUE(Write());
    EXPECT_TRUE(fs::is_symlink(folder_.Host("a.mp3")) && folder_.Listing() == "a.mp3 real ");
    EXPECT_EQ(fs::status(folder_.Host("real")).permissions(), mode);
    EXPECT_TRUE(folder_.Read("real") == TagOnDisk() + kAudio && TagOnDisk().size() == 1024);
}

TEST_F(WritingTest, AFullDiskIsToldAndLeavesTheFile) {
    std::string told;
    Host().ReportLine = [&told](const std::string& line) { told = line; };
    const std::pair<const char*, std::size_t> rows[] = {{"g", 0}, {"g", 500}, {"g", 70000}, {"s", 100}};
    for (const auto& [deeds, room] : rows) {
        Prepare(TagOf(50) + kAudio, deeds);
        host_.Boxes.clear();
        const FullDisk disk(room);
        EXPECT_FALSE(Write());
        EXPECT_EQ(told + host_.Boxes, "clsMP3.WriteTags - Error: Disk not ready - 71"
                                      "Writing failed.|Error while writing to file! Perhaps there is\r"
                                      "not enough free disc space.|48\n");
        EXPECT_TRUE(Disk() == TagOf(50) + kAudio && folder_.Listing() == "a.mp3 ") << deeds << room;
    }
}

TEST_F(WritingTest, FailuresOfOtherKindsShowNoBox) {
    Host().WriteUnSync = true;
    Prepare(kAudio, "h"); // no byte of body, which cannot be unsynchronised
    EXPECT_TRUE(!Write() && host_.Boxes.empty() && Disk() == kAudio);
}

TEST_F(WritingTest, AWriteInPlaceThatBreaksOffIsUndone) {
    Prepare(TagOf(500) + kAudio + kRecord, "p");
    int writes = 0;
    HostCalls::SetInterceptor([&writes](HostCalls::Call call, std::size_t& length) {
        if (call != HostCalls::Call::Write) return 0;
        if (++writes == 2) length = 60; // the record goes first
        return writes == 3 ? EIO : 0;
    });
    EXPECT_FALSE(Write());
    HostCalls::SetInterceptor({});
    EXPECT_TRUE(Disk() == TagOf(500) + kAudio + kRecord);
}

TEST_F(WritingTest, AfterAnyFailureTheAudioIsWholeAndEachTagOldOrNew) {
    using HostCalls::Call;
    const std::string old = TagOf(500) + kAudio + kRecord;
    for (const std::string deeds : {"ps", "gs", "tr", "prn", "gsn"}) {
        Prepare(old, deeds);
        ASSERT_TRUE(Write());
        const std::string wanted = Disk(), tag = TagOnDisk(), rest = wanted.substr(tag.size());
        const std::set<std::string> whole = {old, wanted, tag + kAudio + kRecord, TagOf(500) + rest};
        for (const Call kind :
             {Call::Open, Call::Read, Call::Write, Call::Sync, Call::Truncate, Call::Rename, Call::Lock})
            for (const int howMany : {1, 1000})
                for (int nth = 1, seen = 1; nth <= seen; ++nth) {
                    Prepare(old, deeds);
                    auto failing = std::make_unique<FailingCalls>(kind, nth, EIO, howMany);
                    const bool written = Write();
                    seen = failing->Seen();
                    failing.reset();
                    const bool clean = folder_.Listing().size() == 6; // one file and no temporary
                    EXPECT_TRUE(clean && whole.count(Disk()) == 1 && (written || Write()) && Disk() == wanted)
                        << deeds << static_cast<int>(kind) << " " << nth << " " << folder_.Listing();
                }
    }
}

TEST_F(WritingTest, TheBarShowsTheCopyAlone) {
    std::string bar;
    Host().WriteBarMax = [&bar](std::int64_t max) { bar += "max " + std::to_string(max) + " "; };
    Host().WriteBarValue = [&bar](std::int64_t value) { bar += std::to_string(value) + " "; };
    Prepare(TagOf(100) + kAudio, "");
    for (const char* expected : {"0 ", "0 max 83510 65535 83510 ", "0 max 84424 65535 84424 0 "}) {
        bar.clear();
        EXPECT_TRUE(Write());
        EXPECT_EQ(bar, expected);
        Do(expected == "0 "s ? 'g' : 't');
    }
}

} // namespace
