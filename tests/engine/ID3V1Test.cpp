// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/EngineFixture.h"
#include "engine/Tables.h"

using namespace calyvox;

namespace {

const std::string kFull = build::Id3v1({"Ti", "Ar", "Al", "1999", "Co", 7, 85});

std::string With(std::size_t at, const std::string& bytes) {
    return std::string(kFull).replace(at, bytes.size(), bytes);
}

class ID3V1Test : public EngineTest {
protected:
    std::string Read(const std::string& record) {
        ID3V1 tag;
        EXPECT_TRUE(tag.GetTag(Open(record)));
        return (tag.Present() ? "" : "none ") + tag.Title() + "|" + tag.Artist() + "|" + tag.Album() + "|" +
               tag.Year() + "|" + tag.Comment() + "|" + std::to_string(tag.Track()) + "|" +
               std::to_string(tag.Genre());
    }
};

TEST_F(ID3V1Test, ReadsTheRecordAtTheFilesEnd) {
    const std::string thirty(30, 'x');
    EXPECT_EQ(Read("TAG" + build::Audio(1) + kFull), "Ti|Ar|Al|1999|Co|7|85");
    EXPECT_EQ(Read(With(0, "tAg")), "Ti|Ar|Al|1999|Co|7|85");
    EXPECT_EQ(Read(With(0, "TAX")), "none |||||0|255");
    EXPECT_EQ(Read(With(3, thirty)), thirty + "|Ar|Al|1999|Co|7|85");
    EXPECT_EQ(Read(With(3, "  abc  \0zz"s)), "abc|Ar|Al|1999|Co|7|85");
    EXPECT_EQ(Read(With(93, "    ")), "Ti|Ar|Al||Co|7|85");
    EXPECT_EQ(Read(With(97, thirty)), "Ti|Ar|Al|1999|" + thirty.substr(2) + "|0|85"); // no room for a track
    EXPECT_EQ(Read(With(127, "\x7D")), "Ti|Ar|Al|1999|Co|7|125");
    EXPECT_EQ(Read(With(127, "\x7E")), "Ti|Ar|Al|1999|Co|7|255");
    EXPECT_TRUE(!ID3V1().GetTag(Open(std::string(127, 'T'))) && file_.FileNumber() == -1); // too short
}

TEST_F(ID3V1Test, PresentIsNotTakenBackByReading) {
    ID3V1 tag;
    tag.SetPresent(true);
    EXPECT_TRUE(tag.GetTag(Open(With(0, "XXX"))));
    EXPECT_EQ(tag.CreateTag(), kFull);
}

TEST_F(ID3V1Test, WritesFieldsCutOrFilledWithNuls) {
    ID3V1 tag;
    EXPECT_EQ(tag.CreateTag(), "");
    tag.SetPresent(true);
    tag.SetTitle("  " + std::string(31, 't') + " ");
    tag.SetArtist("a");
    tag.SetYear("20011");
    tag.SetComment(std::string(30, 'c'));
    tag.SetTrack(255);
    EXPECT_EQ(tag.CreateTag(), "TAG" + std::string(30, 't') + 'a' + build::Nuls(59) + "2001" +
                                   std::string(28, 'c') + '\0' + "\xFF\xFF");
}

TEST_F(ID3V1Test, GenresHaveTheNumbersOfTheTable) {
    EXPECT_TRUE(GenreNumber("Blues") == 0 && GenreNumber("vOCAL") == 28 && GenreNumber("BEBOB") == 85);
    EXPECT_TRUE(GenreNumber(" Blues") == 255 && GenreNumber("") == 255);
    for (std::uint8_t number = 0; number < 126; ++number)
        EXPECT_EQ(GenreNumber(GenreName(number)), number);
    EXPECT_EQ(GenreName(126), "< undefined >");
}

} // namespace
