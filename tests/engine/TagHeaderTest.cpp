// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/EngineFixture.h"
#include "engine/Unsynchronisation.h"

using namespace calyvox;

namespace {

class TagHeaderTest : public EngineTest {
protected:
    // "version size flags position", flags of u x f: unsynchronised, extended header, footer.
    std::string Read(const std::string& bytes) {
        header_ = TagHeader();
        EXPECT_TRUE(header_.GetHeader(Open(bytes), false));
        if (!header_.Present()) return "none";
        return std::to_string(header_.Version()) + " " + std::to_string(header_.Size()) + " " +
               (header_.UnSync() ? "u" : "") + (header_.ExtHeaderPresent() ? "x" : "") +
               (header_.FooterPresent() ? "f" : "") + " " + std::to_string(file_.FilePos());
    }

    TagHeader header_;
};

TEST_F(TagHeaderTest, ReadsHeaderAndExtendedHeader) {
    const std::string body = build::Nuls(30);
    EXPECT_EQ(Read("id3" + build::Tag(4, body).substr(3)), "4 30  11");
    EXPECT_EQ(Read("XD3" + build::Tag(4, body).substr(3)), "none");
    EXPECT_EQ(Read(build::Tag(2, body, 0xFF)), "2 30 u 11");
    EXPECT_EQ(Read("ID3\3\0\0\0\0\1\x80"s + body), "3 256  11"); // a high bit adds to the sum
    EXPECT_EQ(Read(build::Tag(3, body, 16)), "3 30  11");
    EXPECT_EQ(Read(build::Tag(4, body, 16 | 128)), "4 30 uf 11");
    EXPECT_EQ(Read(build::Tag(3, build::BigEndian(6) + body, 64)), "3 34 x 21");
    EXPECT_EQ(Read(build::Tag(3, build::BigEndian(0) + body, 64)), "3 34 x 15");
    EXPECT_EQ(Read(build::Tag(4, build::Syncsafe(10) + body, 64)), "4 34 x 21");
    EXPECT_EQ(Read(build::Tag(4, build::Syncsafe(4) + body, 64)), "4 34 x 15");
    EXPECT_THROW(Read(build::Tag(4, build::Syncsafe(3) + body, 64)), Failure);
    EXPECT_THROW(Read(build::Tag(4, "\x7F\x7F\x7F\x7F" + body, 64)), Failure);
}

TEST_F(TagHeaderTest, AFailureNeverDeletesTheFileThatARenameIsToMake) {
    Open(build::Tag(3, "\x7F\xFF\xFF\xFF" + build::Nuls(30), 64));
    file_.SetOrigFilename(file_.Filename());
    file_.SetFilename(folder_.Write("wanted.mp3", "another file"));
    EXPECT_THROW(header_.GetHeader(file_, false), Failure);
    EXPECT_EQ(folder_.Read("wanted.mp3"), "another file");
}

TEST_F(TagHeaderTest, BuildsWhatWasReadWithTheNewSize) {
    const std::string ext = build::BigEndian(3) + "\xFF\xE1" + "e";
    EXPECT_EQ(Read("ID3\3\7\x60"s + build::Syncsafe(37) + ext + build::Nuls(30)), "3 37 x 18");
    EXPECT_EQ(header_.CreateHeader(build::Nuls(1007)), "ID3\3\7\x60\0\0\7\x76"s + ext);
    Host().WriteUnSync = true;
    EXPECT_EQ(header_.CreateHeader(build::Nuls(1006)), "ID3\3\7\xE0\0\0\7\x76\0\0\0\3\xFF\0\xE1"s + "e");
    header_.SetExtHeaderPresent(true);
    header_.SetExtHeaderPresent(false);
    Host().WriteUnSync = false;
    EXPECT_EQ(header_.CreateHeader(build::Nuls(1014)), "ID3\3\7\x20\0\0\7\x76"s);
    header_.SetSize((1 << 29) - 1);
    EXPECT_EQ(header_.SizeAsString(), "\xFF\x7F\x7F\x7F");
    EXPECT_THROW(header_.SetSize(1 << 29), Failure);
}

TEST_F(TagHeaderTest, ANewTagAsksForItsVersionOnce) {
    int asked = 2;
    Host().NewTagVersion = [&asked] { return static_cast<std::uint8_t>(++asked); };
    header_.SetPresent(true);
    header_.SetPresent(true);
    EXPECT_EQ(header_.CreateHeader("12"), "ID3\3\0\0\0\0\0\2"s);
}

TEST_F(TagHeaderTest, EveryWriteOfTheFooterFlipsItsBit) {
    header_.SetVersion(4);
    for (const int expected : {16, 0, 16}) {
        header_.SetFooterPresent(true);
        EXPECT_EQ(header_.CreateHeader("")[5], expected);
    }
    header_.SetVersion(3);
    EXPECT_EQ(header_.CreateHeader("")[5], 0);
}

TEST_F(TagHeaderTest, UnsynchronisationHidesFalseSyncsAndGivesThemBack) {
    const std::string hidden = "\xFF\xDF\xFF\0\xE0\xFF\0\xFF\0\xFF\0\0\0\xFF"s;
    EXPECT_EQ(Unsynchronise("\xFF\xDF\xFF\xE0\xFF\xFF\xFF\0\0\xFF"s), hidden);
    EXPECT_EQ(Resynchronise(hidden), "\xFF\xDF\xFF\xE0\xFF\xFF\xFF\0\0\xFF"s);
    EXPECT_THROW(Unsynchronise("a"), Failure);
}

} // namespace
