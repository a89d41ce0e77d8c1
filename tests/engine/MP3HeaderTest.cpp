// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/EngineFixture.h"

using namespace calyvox;

namespace {

class MP3HeaderTest : public EngineTest {
protected:
    std::string Read(const std::string& bytes) {
        TagHeader tag;
        MP3Header header;
        EXPECT_TRUE(tag.GetHeader(Open(bytes), false) && header.GetMP3Header(file_, tag));
        return header.MPEG() + header.Layer() + " " + std::to_string(header.BitRate()) + " " +
               std::to_string(header.Frequence()) + " " + header.Channel();
    }
};

const std::string kSample = "\xFF\xFB\x90\x64";
constexpr const char* kFound = "MPEG-1.0 Layer III 128000 44100 Joint Stereo";
constexpr const char* kNothing = "MPEG-2.5  0 11025 Stereo";

TEST_F(MP3HeaderTest, DecodesTheFourBytesByTheTables) {
    const std::string rest(500, 'x');
    EXPECT_EQ(Read("\xFF\xFD\xE4\x10" + rest), "MPEG-1.0 Layer II 384000 48000 Stereo");
    EXPECT_EQ(Read("\xFF\xFF\xE8\x80" + rest), "MPEG-1.0 Layer I 448000 32000 Dual Channel");
    EXPECT_EQ(Read("\xFF\xF3\x10\xC0" + rest), "MPEG-2.0 Layer III 8000 22050 Single Channel");
    EXPECT_EQ(Read("\xFF\xF5\x24\x10" + rest), "MPEG-2.0 Layer II 16000 24000 Stereo");
    EXPECT_EQ(Read("\xFF\xF7\xB8\x10" + rest), "MPEG-2.0 Layer I 176000 16000 Stereo");
    EXPECT_EQ(Read("\xFF\xE3\xE8\x10" + rest), "MPEG-2.5 Layer III 160000 8000 Stereo");
    EXPECT_EQ(Read("\xFF\xEB\x01\x10" + rest), "Layer III 0 0 Stereo");     // reserved version, free format
    EXPECT_EQ(Read("\xFF\xF9\x9C\x10" + rest), "MPEG-1.0  0 99999 Stereo"); // reserved layer, frequency
}

TEST_F(MP3HeaderTest, SearchesFromBehindTheTagOverABoundedLength) {
    const auto junk = [](std::size_t count) { return std::string(count, 'j'); };
    const std::string end = kSample + junk(40000);
    EXPECT_EQ(Read(build::Tag(3, "\xFF\xF3\x10\xC0" + junk(96)) + end), kFound); // the tag is not searched
    EXPECT_EQ(Read(build::Tag(4, junk(90), 16) + kSample + junk(600)), kFound);  // the footer is
    EXPECT_EQ(Read(junk(32763) + end), kFound);
    EXPECT_EQ(Read(junk(32764) + end), kNothing);
    EXPECT_EQ(Read(build::Tag(3, junk(50)) + junk(32763) + end), kFound);
    EXPECT_EQ(Read(junk(4095) + end), kFound); // over the seam of two reads
    EXPECT_EQ(Read(build::TagOfSize(3, junk(500) + kSample, 9999)), kFound);
    EXPECT_EQ(Read(junk(500) + kSample), kFound);
    EXPECT_EQ(Read("\xFF\xDF\x90\x64" + junk(500)), kNothing);
    file_.CloseFile();
    EXPECT_FALSE(MP3Header().GetMP3Header(file_, TagHeader()));
}

} // namespace
