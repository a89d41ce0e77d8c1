// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/EngineFixture.h"
#include "engine/MP3s.h"

#include <map>
#include <sstream>

using namespace calyvox;

namespace {

struct Row {
    std::size_t Body, OldSize, NewFooter, OldFooter, Total; // in bytes
    std::size_t NulsAtEnd = 0;                              // which the frame has itself
};

// With footers the room is the tag's whole length; NULs that a frame ends in are no padding.
TEST(FrameContainerTest, PaddingKeepsTheOldLengthOrGrowsToAMultipleOf1024) {
    const Row rows[] = {{200, 200, 0, 0, 210},       {201, 200, 0, 0, 1024},      {1013, 200, 0, 0, 1024},
                        {1014, 200, 0, 0, 2048},     {1024, 200, 0, 0, 2048},     {0, 0, 0, 0, 10},
                        {210, 200, 0, 10, 220},      {211, 200, 0, 10, 1024},     {190, 200, 10, 0, 210},
                        {191, 200, 10, 0, 1024},     {200, 200, 10, 10, 220},     {201, 200, 10, 10, 1024},
                        {1003, 200, 10, 0, 1024},    {1004, 200, 10, 0, 2048},    {0, 0, 10, 0, 1024},
                        {0, 10, 10, 0, 20},          {1014, 200, 0, 0, 1024, 1},  {1015, 200, 0, 0, 2048, 20},
                        {1004, 200, 10, 0, 1024, 1}, {1005, 200, 10, 0, 2048, 30}};
    for (const Row& row : rows) {
        std::string body;
        ID3V2 frames;
        if (row.Body != 0) {
            const std::string content(row.Body - 10 - row.NulsAtEnd, 'x');
            body = build::Frame(3, "PRIV", content + build::Nuls(row.NulsAtEnd));
            frames.Add(Make("PRIV", body.substr(10)), {}, true);
        }
        body.resize(row.Total - 10 - row.NewFooter);
        std::string expected = build::Tag(3, body, row.NewFooter ? 16 : 0);
        if (row.NewFooter) expected.append(expected.rend() - 10, expected.rend());
        TagHeader header = HeaderOf(3, 0, row.NewFooter != 0);
        const TagHeader old = HeaderOf(3, row.OldSize, row.OldFooter != 0);
        EXPECT_EQ(frames.CreateID3V2(header, old), expected) << row.Body << " in " << row.OldSize;
    }
}

// "ID:content:descriptor:lan:number"; "-" in front for Remove.
FramePtr Parse(const std::string& text) {
    std::istringstream stream(text.substr(text.find_first_not_of('-')));
    std::string part[5];
    for (std::string& field : part)
        std::getline(stream, field, ':');
    FramePtr frame = Make(part[0], part[1], static_cast<std::uint8_t>(part[4][0]), part[2], part[3]);
    frame->SetRemove(text[0] == '-');
    return frame;
}

// Rows of frames that are loaded, one that is added behind "+", and what is found behind "=": the places of
// the loaded ones, "+" for the added, "!" for a change.
void ExpectAdded(const std::string& rows) {
    std::istringstream stream(rows);
    for (std::string word, found; stream >> word; found.clear()) {
        ID3V2 frames;
        std::map<const V2Frame*, char> places;
        for (char place = '0'; word != "+"; stream >> word)
            places[&frames.Add(Parse(word), {}, true)] = place++;
        stream >> word;
        places[&frames.Add(Parse(word), {}, false)] = '+';
        for (const V2Frame& frame : frames)
            found += places[&frame];
        stream >> word >> word;
        EXPECT_EQ(found + (frames.Changed() ? "!" : ""), word) << "before" << rows.substr(stream.tellg());
    }
}

TEST(FrameContainerTest, AFrameReplacesItsLikeAndTellsAChange) {
    ExpectAdded(
        "TPE1:a + TIT2:a = 0+!            TIT2:a TIT2:a + TIT2:a = 1+      TIT2:a TPE1:b + TIT2:b = 1+! "
        "TIT2:a + -TIT2:a = +!            TIT2:a + -TPE1:a = 0+            PRIV:a + PRIV:b = +! "
        "COMM:a:d:eng COMM:a:d:deu + COMM:b:y:eng = 01+!    COMM:a:d:eng + USLT:a:d:eng = 0+! "
        "COMM:a:x:eng COMM:a:d:eng + COMM:a:d:eng = 0+      COMM:a:d:eng + -COMM:a:d:eng = +! "
        "COMM:a:d:deu COMM:a:d:eng + COMM:b:d:eng = 0+!     COMM:a:d:eng + -COMM:a:d:deu = 0+ "
        "USLT:a:d:eng + USLT:b:d:eng = +! WCOM:a WCOM:b + WCOM:b = 0+      WCOM:a + WCOM:b = 0+! "
        "WCOM:a + -WCOM:a = +             WCOP:a + WCOP:b = +!             TXXX:a:d + TXXX:a:D = 0+! "
        "POPM:c:u::5 + POPM:c:u::5 = +    POPM:c:u::5 + POPM:c:u::6 = +!   TXXX:a:d + WXXX:a:d = 0+! "
        "POPM:c:u::5 + POPM:d:u::5 = +!   POPM:c:u::5 + POPM:c:v::5 = 0+!  TXXX:a:d + TXXX:b:d = +! ");
    const HostScope host;
    Host().SingleCOMMGenre = true;
    ExpectAdded("COMM:a:d:eng TIT2:a COMM:a:d:deu + COMM:a:x:eng = 1+!   COMM:a:d:eng + -COMM:a:e:eng = +! "
                "COMM:a:d:eng COMM:b:d:eng + COMM:a:d:eng = 1+           USLT:a:d:eng + USLT:b:e:eng = 0+! ");
}

TEST(FrameContainerTest, ClearingDropsTheFlaggedFramesAlone) {
    ID3V2 frames;
    for (const char* text : {"-TIT2:a", "-TPE1:a", "TALB:a", "-TCON:a"})
        frames.Add(Parse(text), {}, true);
    frames.ClearFrames();
    EXPECT_TRUE(frames.Count() == 1 && !frames.Changed());
    EXPECT_EQ(frames.Item(1).FrameHeader_FrameID(), "TALB");
}

TEST(FrameContainerTest, ItemsMoveUpAndKeepTheirKeys) {
    MP3s files;
    files.Add(std::make_unique<MP3>(), "a");
    const MP3& second = files.Add(std::make_unique<MP3>(), "b");
    EXPECT_THROW(files.Add(std::make_unique<MP3>(), "B"), Failure);
    files.Remove(1);
    EXPECT_TRUE(&files.Item(1) == &second && &files.Item("b") == &second);
    EXPECT_THROW(files.Item("a"), Failure);
    EXPECT_THROW(files.Item(2), Failure);
}

} // namespace
