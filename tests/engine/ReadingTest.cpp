// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/EngineFixture.h"
#include "platform/HostPath.h"
#include "support/FailingCalls.h"

#include <filesystem>

using namespace calyvox;

namespace {

class ReadingTest : public EngineTest {
protected:
    // "ID=" and the fields for each frame.
    std::string Frames() {
        std::string frames;
        for (V2Frame& frame : mp3_.ID3V2())
            frames += frame.FrameHeader_FrameID() + "=" + Fields(frame) + " ";
        return frames;
    }
    // Takes the temporary copies out of the folder where the engine makes them, and counts them.
    int TakeCopies() {
        TagHeader header;
        header.GetHeader(Open(build::Tag(3, "TIT2", 128)), false);
        const std::filesystem::path copy = HostPath::ToHost(file_.Filename());
        header.RestoreFile(file_);
        int copies = 0;
        for (const auto& entry : std::filesystem::directory_iterator(copy.parent_path()))
            copies += std::filesystem::remove(entry.path()) ? 1 : 0;
        return copies;
    }
    template <typename Value, typename Given>
    void ExpectForwarded(Value (MP3::*get)() const, void (MP3::*set)(Given), const std::decay_t<Value>& found,
                         const std::decay_t<Value>& given) {
        EXPECT_EQ((mp3_.*get)(), found);
        (mp3_.*set)(given);
        EXPECT_EQ((mp3_.*get)(), given);
    }
};

std::string TagOf(int version, std::uint8_t flags = 0, const std::string& front = "") {
    return build::Tag(version, front + build::Text(version, "TIT2", "Title") + build::Nuls(64), flags);
}

TEST_F(ReadingTest, TheStatusTellsWhatWasRead) {
    const std::pair<std::string, int> rows[] = {
        {build::Audio(1).substr(0, 400), 0},
        {build::Audio(1).substr(0, 401), 176},
        {TagOf(2) + build::Audio(), 176},
        {TagOf(3) + build::Audio() + kRecord, 240},
        {TagOf(3, 128) + build::Audio(), 248},
        {TagOf(4, 128) + build::Audio(), 240},
        {TagOf(3, 64, build::BigEndian(3) + "ext") + build::Audio(), 240},
        {TagOf(4, 64, build::Syncsafe(7) + "ext") + build::Audio(), 240},
        {TagOf(3, 192, build::BigEndian(2) + "\xFF\0\xE0"s) + build::Audio(), 248},
    };
    for (const auto& [bytes, status] : rows) {
        EXPECT_EQ(Explore(bytes), status);
        EXPECT_EQ(Frames(), status >= 240 ? "TIT2=0|Title " : "");
        EXPECT_EQ(folder_.Read("a.mp3"), bytes);
    }
}

TEST_F(ReadingTest, AnUnsynchronisedTagIsReadCleanAndItsCopyIsGone) {
    const std::string body = build::Frame(3, "TIT2", "\0a\xFF\xE0n"s).insert(13, 1, '\0');
    EXPECT_EQ(Explore(build::Tag(3, body + build::Nuls(40), 128) + build::Audio() + kRecord), 248);
    EXPECT_EQ(Frames(), "TIT2=0|a\xFF\xE0n ");
    EXPECT_EQ(mp3_.MP3File_FileName() + mp3_.MP3File_OrigFileName(), folder_.Inside("a.mp3"));
    EXPECT_EQ(mp3_.ID3V1_Title() + mp3_.MP3Header_Layer(), "OneLayer III");
    EXPECT_TRUE(mp3_.TagHeader_UnSync() && TakeCopies() == 0);
}

TEST_F(ReadingTest, AFailureInTheExtendedHeaderLeavesNoCopy) {
    const std::string bytes = build::Tag(3, "\x7F\x7F\x7F\x7F" + build::Nuls(99), 192) + build::Audio();
    EXPECT_THROW(Explore(bytes), Failure);
    EXPECT_EQ(mp3_.MP3File_FileName() + mp3_.MP3File_OrigFileName(), folder_.Inside("a.mp3"));
    EXPECT_EQ(TakeCopies(), 0);
}

TEST_F(ReadingTest, ACopyThatCannotBeDeletedNeverLooksLikeAPendingRename) {
    auto failing = std::make_unique<FailingCalls>(HostCalls::Call::Unlink, 1, EIO);
    Skip([&] { Explore(TagOf(3, 128) + build::Audio()); });
    failing.reset();
    EXPECT_EQ(mp3_.MP3File_FileName() + mp3_.MP3File_OrigFileName(), folder_.Inside("a.mp3"));
    EXPECT_EQ(TakeCopies(), 1);
}

TEST_F(ReadingTest, AFileTooShortLeavesTheObjectsTagsAsTheyWere) {
    Explore(TagOf(3) + build::Audio() + kRecord);
    mp3_.SetChanged(true);
    EXPECT_EQ(mp3_.ExploreMP3(folder_.Write("b.mp3", "short")), 0);
    EXPECT_EQ(Frames() + mp3_.ID3V1_Title(), "TIT2=0|Title One");
    EXPECT_FALSE(mp3_.Changed());
    mp3_.ExploreMP3(folder_.Write("b.mp3", build::Audio()));
    EXPECT_TRUE((Frames() + mp3_.ID3V1_Title()).empty() && !mp3_.TagHeader_Present());
}

TEST_F(ReadingTest, FramesAreReadInOrderToTheTagsEnd) {
    const std::string a = build::Text(3, "TIT2", "a"), b = build::Text(3, "TPE1", "b");
    const auto sized = [](const char* id, std::size_t size) { return id + build::BigEndian(size) + "\0\0"s; };
    const std::pair<std::string, std::string> rows[] = {
        {a + build::Nuls(4) + b, "TIT2=0|a "},      // padding
        {a + a + b, "TIT2=0|a TIT2=0|a TPE1=0|b "}, // to the last byte
        {a + b.substr(0, 9), "TIT2=0|a "},          // fewer than ten bytes are no frame
        {sized("ABCD", 0) + a, "TIT2=0|a "},        // unknown
        {sized("ABCD", 10) + a.substr(0, 10) + sized("TALB", 0), "TALB=0| "},
        {a + sized("ABCD", b.size() - 8) + b, "TIT2=0|a "},       // unknown, and one byte too long
        {build::Text(3, "tit2", "a") + b, "tit2=\0a TPE1=0|b "s}, // opaque
        {build::Text(3, "TDEN", "1") + sized("XABC", 0), "TDEN=\0"s + "1 XABC= "},
        {build::Frame(3, "TIT2", "1") + b, "TIT2=0| TPE1=0|b "},                         // empty, and kept
        {build::Frame(3, "COMM", std::string(12, 'c')) + a + b, "COMM=99||| TPE1=0|b "}, // without a NUL
        {b + sized("TIT2", 300) + "\0x"s, "TPE1=0|b TIT2=0|x" + build::Audio().substr(0, 298) + " "},
        {a + sized("TALB", 0x80000000) + b, "TIT2=0|a "},
        {a + sized("TALB", 0x7FFFFFFF) + b, "TIT2=0|a TALB=0| "},
    };
    for (const auto& [body, frames] : rows) {
        EXPECT_EQ(Explore(build::Tag(3, body) + build::Audio()), 240);
        EXPECT_EQ(Frames() + (mp3_.ID3V2().Changed() ? "changed" : ""), frames);
    }
    Explore(build::TagOfSize(3, build::Frame(3, "PRIV", std::string(600, 'b')), 9999).substr(0, 420));
    EXPECT_EQ(Frames(), "PRIV=" + std::string(400, 'b') + build::Nuls(200) + " ") << "beyond the file's end";
}

TEST_F(ReadingTest, EveryMemberReachesItsOwner) {
    std::string trace;
    Host().ReportLine = [&trace](const std::string& line) { trace += line; };
    Explore(build::Tag(4, build::BigEndian(4) + build::Nuls(296), 64 | 16) + build::Audio() + kRecord);
    EXPECT_EQ(trace, "Exploring: " + folder_.Inside("a.mp3"));
    EXPECT_EQ(mp3_.ID3V1_CreateTag() + mp3_.ID3V1_GenreText(), kRecord + "Grunge");
    ExpectForwarded(&MP3::ID3V1_Title, &MP3::SetID3V1_Title, "One", "t");
    ExpectForwarded(&MP3::ID3V1_Artist, &MP3::SetID3V1_Artist, "Two", "a");
    ExpectForwarded(&MP3::ID3V1_Album, &MP3::SetID3V1_Album, "Three", "l");
    ExpectForwarded(&MP3::ID3V1_Year, &MP3::SetID3V1_Year, "2004", "y");
    ExpectForwarded(&MP3::ID3V1_Comment, &MP3::SetID3V1_Comment, "Four", "c");
    ExpectForwarded(&MP3::ID3V1_Track, &MP3::SetID3V1_Track, 5, 9);
    ExpectForwarded(&MP3::ID3V1_Genre, &MP3::SetID3V1_Genre, 6, 8);
    ExpectForwarded(&MP3::ID3V1_Present, &MP3::SetID3V1_Present, true, false);
    ExpectForwarded(&MP3::TagHeader_ExtHeaderPresent, &MP3::SetTagHeader_ExtHeaderPresent, true, false);
    ExpectForwarded(&MP3::TagHeader_FooterPresent, &MP3::SetTagHeader_FooterPresent, true, false);
    ExpectForwarded(&MP3::TagHeader_UnSync, &MP3::SetTagHeader_UnSync, false, true);
    ExpectForwarded(&MP3::TagHeader_Version, &MP3::SetTagHeader_Version, 4, 3);
    ExpectForwarded(&MP3::TagHeader_Size, &MP3::TagHeader_SetSize, 300, 129);
    EXPECT_EQ(mp3_.TagHeader_SizeAsString(), "\0\0\1\1"s);
    EXPECT_EQ(mp3_.TagHeader_CreateHeader("1234"), "ID3\3\0\0\0\0\0\4"s);
    ExpectForwarded(&MP3::TagHeader_Present, &MP3::SetTagHeader_Present, true, false);
    EXPECT_TRUE(mp3_.MP3File_FileNumber() == -1 && mp3_.MP3File_OpenFileLocked());
    mp3_.MP3File_CloseFile();
    EXPECT_TRUE(mp3_.MP3File_OpenFile() && mp3_.MP3File_FileLen() == 310 + 4 * 417 + 128);
    ExpectForwarded(&MP3::MP3File_FilePos, &MP3::SetMP3File_FilePos, 1, 7);
    ExpectForwarded(&MP3::MP3File_FileName, &MP3::SetMP3File_FileName, folder_.Inside("a.mp3"), "n");
    ExpectForwarded(&MP3::MP3File_OrigFileName, &MP3::SetMP3File_OrigFileName, "", "o");
    Open(TagOf(3, 192, "\0\0\0\2\xFF\0e"s) + "\xFF\xF3\x10\xC0" + build::Nuls(400) + kRecord);
    EXPECT_TRUE(mp3_.ID3V1_GetTag(file_) && mp3_.TagHeader_GetHeader(file_, true) && file_.FilePos() == 11);
    EXPECT_TRUE(mp3_.MP3Header_GetMP3Header(file_, HeaderOf(3, 87)) && file_.OrigFilename().empty());
    EXPECT_EQ(mp3_.ID3V1_Title() + mp3_.TagHeader_CreateHeader("").substr(10), "One\0\0\0\2\xFF\x65"s);
    EXPECT_EQ(mp3_.MP3Header_MPEG() + mp3_.MP3Header_Channel(), "MPEG-2.0 Single Channel");
    EXPECT_TRUE(mp3_.MP3Header_BitRate() == 8000 && mp3_.MP3Header_Frequence() == 22050);
}

} // namespace
