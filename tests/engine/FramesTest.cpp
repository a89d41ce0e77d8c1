// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/EngineFixture.h"
#include "engine/Tables.h"
#include "engine/Unsynchronisation.h"

#include <algorithm>

using namespace calyvox;

namespace {

// Version, ID, format flags, body; then the fields parted by "|", and " twice" where the file stands behind
// the frame by its size once more.
using Read = std::tuple<int, std::string, int, std::string, std::string>;
// Version and frame; then the body, empty where there is no frame.
using Made = std::tuple<int, FramePtr, std::string>;

class FramesTest : public EngineTest {
protected:
    void Check(const Read& row) {
        const auto& [version, id, flags, body, expected] = row;
        Open(build::Frame(version, id, body, 0, static_cast<std::uint8_t>(flags)) + std::string(99, 'n'));
        const FramePtr frame = MakeFrame(id);
        EXPECT_TRUE(frame->FrameHeader_GetFrame(file_, HeaderOf(version)));
        const bool once = file_.FilePos() == 11 + frame->FrameHeader_Size();
        EXPECT_EQ(Fields(*frame) + (once ? "" : " twice"), expected) << id << body;
    }
    static void Check(const Made& row) {
        const auto& [version, frame, body] = row;
        const std::string id = frame->FrameHeader_FrameID();
        const int flags = version == 3 ? 0x7F : 0xF4 | (Host().WriteUnSync ? 2 : 0) | (id == "PRIV" ? 1 : 0);
        frame->SetFrameHeader_FlagByte1(3);
        frame->SetFrameHeader_FlagByte2(0xFF);
        EXPECT_EQ(frame->CreateFrame(HeaderOf(version)),
                  body.empty() ? "" : build::Frame(version, id, body, 3, static_cast<std::uint8_t>(flags)));
        EXPECT_EQ(frame->FrameHeader_FlagByte2(), 0xFF);
    }
    template <typename... Rows>
    void Expect(const Rows&... rows) {
        (Check(rows), ...);
    }
};

TEST_F(FramesTest, EachFormatFlagMeansWhatItsVersionSays) {
    // The bits from 1 to 128: c compressed, e encrypted, u unsynchronised.
    const std::pair<int, std::string> rows[] = {{3, "-----eec"}, {4, "-u----e-"}, {2, "--------"}};
    for (const auto& [version, expected] : rows) {
        std::string meanings;
        for (std::uint8_t flag = 1; flag != 0; flag <<= 1) {
            FrameHeader header;
            header.GetFrame(Open(build::Frame(version, "TIT2", "", 5, flag)), HeaderOf(version));
            meanings += header.Compressed() ? 'c' : header.Encrypted() ? 'e' : header.UnSync() ? 'u' : '-';
            EXPECT_TRUE(header.FlagByte1() == 5 && header.FlagByte2() == flag);
        }
        EXPECT_EQ(meanings, expected) << version;
    }
}

TEST_F(FramesTest, OnlyKnownAndExperimentalIDsAreFrames) {
    FrameHeader header;
    for (const std::string id : {"tit2", "TDEN", "XABC", "YABC", "ZABC", "xABC", "CHAP", "IT2T"}) {
        EXPECT_TRUE(header.GetFrame(Open(build::Frame(3, id, "", 0, 0xFF)), HeaderOf(3)));
        EXPECT_EQ(header.NoFrame(), id == "xABC" || id == "CHAP" || id == "IT2T") << id;
        EXPECT_NE(header.Compressed(), header.NoFrame()) << id;
    }
    header.SetFrameID("abcdef");
    header.SetSize(1, HeaderOf(2));
    EXPECT_EQ(header.FrameID() + header.SizeAsString(), "ABCD\0\0\0\0"s);
    EXPECT_EQ(std::count(Tables().FrameIDList.begin(), Tables().FrameIDList.end(), '\0'), 92);
}

TEST_F(FramesTest, BodiesAreTakenApartByTheirClass) {
    Expect(Read(3, "TPE1", 0, "\1\xFF\xFEn\0\0\0"s, "1|\xFF\xFEn\0\0"s),
           Read(3, "IPLS", 0, "\0 a\0b "s, "0| a\0b "s),
           Read(4, "PRIV", 0, build::Nuls(130), build::Nuls(130)), Read(3, "TIT2", 0, "\1", "0|"),
           Read(3, "WCOM", 0, "  a \0"s, "a "), Read(3, "PRIV", 0, " a\0 \0"s, " a\0 \0"s),
           Read(4, "COMM", 0, "\3deuabc\0 x \0\0"s, "3|deu|abc| x \0"s),
           Read(3, "USLT", 0, "\1eng\0"s, "0|||"), Read(3, "USLT", 0, "\1eng\0x"s, "1|eng||x"),
           Read(3, "COMM", 0, "\1eng\xFF\xFE\0\0n\0"s, "1|eng|\xFF\xFE|\0n"s),
           Read(3, "COMM", 0, "\1engabc", "1||| twice"), Read(3, "TXXX", 0, "\1k\0v"s, "0|k|v"),
           Read(4, "WXXX", 0, "3k\0v\0"s, "3|k|v"), Read(3, "TXXX", 0, "3", "0||"),
           Read(3, "TXXX", 0, "3abc", "0|| twice"), Read(3, "POPM", 0, "a\0\xC8\0\0\1\0"s, "a|200|\0\0\1\0"s),
           Read(3, "POPM", 0, "abc", "|0|"), Read(3, "POPM", 0, "a\0"s, "|0|"),
           Read(2, "PRIV", 0, "abc", ""));
}

TEST_F(FramesTest, BodiesAreCleanedAndExpandedByTheirFlags) {
    const std::string zipped = build::Compressed("\0abc"s), nuls = build::Compressed(build::Nuls(0xFF00));
    Expect(Read(4, "TIT2", 2, "\0a\xFF\0\xE0n"s, "0|a\xFF\xE0n"),
           Read(3, "APIC", 128, nuls, build::Nuls(0xFF00)),
           Read(4, "PRIV", 11, Unsynchronise(nuls), build::Nuls(0xFF00)),
           Read(3, "TIT2", 128, build::BigEndian(1) + zipped.substr(4), "0|abc"),
           Read(3, "TIT2", 128, build::BigEndian(3) + "garbage", "0|"), Read(3, "WOAR", 128, "abc", ""),
           Read(3, "TIT2", 128, "\0\0\1"s, "0| twice"),
           Read(3, "TIT2", 128, build::Compressed(""), "0| twice"),
           Read(3, "WOAR", 128, build::BigEndian(0x7FFFFFFF) + zipped.substr(4), ""));
}

// A NUL ends texts in 2.4 and none in 2.3; flags lose compression and unsynchronisation alone.
TEST_F(FramesTest, FramesAreBuiltByTheTagsVersion) {
    Expect(Made(3, Make("TIT2", " abc "), "\0abc"s), Made(3, Make("TIT2", "ab\0\0"s, 3), "\3ab\0"s),
           Made(4, Make("TIT2", "abc"), "\0abc\0"s), Made(4, Make("TIT2", "ab\0"s), "\0ab\0"s),
           Made(4, Make("TIT2", "   "), ""), Made(2, Make("TIT2", "abc"), ""),
           Made(3, Make("WOAR", " http\0"s), "http"), Made(4, Make("WOAR", " http "), "http\0"s),
           Made(3, Make("WOAR", " "), ""), Made(3, Make("PRIV", "ab\0"s), "ab\0"s),
           Made(4, Make("PRIV", ""), "\0"s), Made(4, Make("PRIV", build::Nuls(130)), build::Nuls(130)),
           Made(3, Make("COMM", " x\0"s, 3, " d ", "eng"), "\3engd\0x"s),
           Made(4, Make("COMM", "x", 0, "", "engli"), "\0engli\0x\0"s),
           Made(3, Make("COMM", "x", 0, "d"), ""), Made(4, Make("COMM", "", 0, "d", "eng"), ""),
           Made(3, Make("TXXX", "x\0"s, 3, "d"), "\3d\0x"s), Made(4, Make("TXXX", "x", 0, "d"), "\0d\0x\0"s),
           Made(3, Make("TXXX", "", 0, "d"), ""),
           Made(3, Make("POPM", "\0\1\0\0"s, 200, "a"), "a\0\xC8\0\1\0"s),
           Made(3, Make("POPM", "\1", 0, "a"), ""));
    const FramePtr shorter = Make("TIT2", "a\0\0"s); // by one NUL each time
    EXPECT_NE(shorter->CreateFrame(HeaderOf(3)), shorter->CreateFrame(HeaderOf(3)));
    Host().WriteUnSync = true;
    Expect(Made(3, Make("TIT2", "\xFF\xE0"), "\0\xFF\xE0"s),
           Made(4, Make("TIT2", "\xFF\xE0\xFF"), "\0\xFF\0\xE0\xFF\0"s),
           Made(4, Make("POPM", "\xE0", 255, "a"), "a\0\xFF\0\xE0\0"s),
           Made(4, Make("TIT2", "A\xFF", 2), "\2A\xFF\0\0\0"s),
           Made(4, Make("PRIV", "\xFF\xFB\xFF"), "\xFF\0\xFB\xFF\0"s));
}

TEST_F(FramesTest, UnitsOfTwoBytesStayWholeWithTheirTerminator) {
    const std::string mark = "\xFF\xFE";
    Expect(Made(3, Make("TIT2", mark + "A", 1), "\1" + mark + "A\0"s),
           Made(3, Make("TIT2", "\1", 2), "\2\1\0"s),
           Made(3, Make("TIT2", mark + "A\0\0"s, 1), "\1" + mark + "A\0"s),
           Made(4, Make("TIT2", mark + "A", 1), "\1" + mark + "A\0"s),
           Made(4, Make("TIT2", mark + "\0\1"s, 1), "\1" + mark + "\0\1\0\0"s),
           Made(4, Make("TIT2", "ab", 3), "\3ab\0"s),
           Made(3, Make("COMM", "\0A"s, 1, mark, "eng"), "\1eng" + mark + "\0\0A\0"s),
           Made(3, Make("COMM", mark + "A", 1, "", "engl"), "\1engl\0"s + mark + "A"),
           Made(4, Make("COMM", "\0A\0B"s, 2, "", "eng"), "\2eng\0\0A\0B\0"s),
           Made(3, Make("TXXX", mark, 1), "\1\0"s + mark));
}

} // namespace
