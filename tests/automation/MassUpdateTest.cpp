// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "automation/MassUpdate.h"

#include "app/SettingsCatalogue.h"
#include "app/clsRegistry.h"
#include "support/HostScope.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

using namespace calyvox;
using namespace std::string_literals;

namespace {

const std::string kNothing = "ID3V1 (No changes) - ID3V2 (No changes)";
const std::string kFirst = "ID3V1 updated - ID3V2 (Not updated)";
const std::string kSecond = "ID3V1 (Not updated) - ID3V2 (OK)";
const std::string kUntagged = "ID3V1 (Not updated) - ID3V2 (Not updated)";
const std::string kError = "Error occured*";
const std::string kDenied = kError + "Access denied!";
const std::string kAudio = build::Audio();
const std::string kWide(28, 'x');
const std::string kFrame = build::Text(3, "TIT2", "Old");
const std::string kTagged =
    build::Tag(3, kFrame) + kAudio + build::Id3v1({"T", "A", "B", "1999", "C", '3', 'G'});

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

// "2.3", frames as "TIT2=^Old" with "^" for a NUL, "|" for the audio with "TAG" behind it, the fields.
std::vector<std::string> Pieces(const std::string& file) {
    std::vector<std::string> pieces;
    if (file.starts_with("ID3")) pieces.push_back("2." + std::to_string(file[3]));
    for (std::size_t at = 10; !pieces.empty() && file[at] > '\0'; at += 10U + file[at + 7])
        pieces.push_back(file.substr(at, 4) + "=" + file.substr(at + 10, file[at + 7]));
    const std::string rest = Replaced(file.substr(std::min(file.find(kAudio), file.size())), kAudio, "|");
    for (std::size_t at = 0; const std::size_t width : {4, 30, 30, 30, 4, 29, 1, 1})
        pieces.push_back(rest.substr(std::min(std::exchange(at, at + width), rest.size()), width));
    for (std::string& piece : pieces)
        piece = Replaced(Replaced(piece.substr(0, piece.find_last_not_of('\0') + 1), "\0"s, "^"), kWide, "#");
    return pieces;
}

// The pieces of a file that another has not, each behind the sign.
std::string Missing(const std::string& file, const std::string& other, const std::string& sign) {
    std::string missing;
    const std::vector<std::string> there = Pieces(other);
    for (const std::string& piece : Pieces(file))
        if (!piece.empty() && std::count(there.begin(), there.end(), piece) == 0) missing += sign + piece;
    return missing;
}

class MassUpdateTest : public testing::Test {
protected:
    /// Lines of a section, "|" for a line's end, "~" for the byte 1, "#" for 28 "x", "@" for the path if it
    /// is not the first; the pieces that go and come; the result, kNothing where the file stays as it is,
    /// byte by byte.
    struct Case {
        std::string Keys, Change{}, Row = Change.empty() ? kNothing : kSecond;
    };

    MassUpdateTest() {
        clsRegistry registry;
        registry.SetKey(std::string(kSettingsRoot) + "Settings\\ID3V2Ver");
        Skip([&] { registry.delKey(); });
        Host().SingleCOMMGenre = true; // the run turns it off
    }
    MassUpdate DataFile(const std::string& data) {
        const std::string lines = Replaced(Replaced(data, "|", "\r\n"), "~", "\x01");
        return {folder_.Write("data.ini", Replaced(lines, "#", kWide)), rows_};
    }
    // The result of a data file with one section, "*" for bold, and the box's title.
    std::string RunOne(const std::string& keys) {
        host_.Boxes.clear();
        DataFile("[Files]|Count=1|[File1]|" + keys).Run([](std::int32_t, const RowList::Row&) {});
        const RowList::Row& row = rows_.At(0);
        return RowList::Cell(row, 1) + (row.Bold ? "*" : "") + host_.Boxes.substr(0, host_.Boxes.find('|'));
    }
    void Check(const std::string& before, const std::initializer_list<Case>& cases) {
        for (const Case& row : cases) {
            const std::string keys = row.Keys.find('@') == std::string::npos ? "@|" + row.Keys : row.Keys;
            EXPECT_EQ(RunOne(Replaced(keys, "@", "Path=" + folder_.Write("a.mp3", before))), row.Row) << keys;
            const std::string after = folder_.Read("a.mp3");
            EXPECT_EQ(Missing(before, after, " -") + Missing(after, before, " +"), row.Change) << keys;
            EXPECT_EQ(after == before, row.Change.empty()) << keys;
        }
    }

    TempFolder folder_;
    HostScope host_;
    RowList rows_;
};

TEST_F(MassUpdateTest, FrameKeysAddReplaceAndRemove) {
    std::string frames = kFrame;
    for (const std::string& frame : {"TCON\0Pop"s, "WCOMa.b"s, "COMM\0engd\0x"s, "COMM\0deud\0y"s,
                                     "COMM\0eng\0z"s, "POPMu\0d"s, "POPMv\0\x32\0\0\0\x07"s})
        frames += build::Frame(3, frame.substr(0, 4), frame.substr(4));
    const std::initializer_list<Case> kCases = {
        {"COMM=d~n~", " -COMM=^engd^x +COMM=^engd^n"},     {"TCON=R~J~", " -TCON=^Pop +TCON=^R^J"},
        {"COMM=a~n~d", " -COMM=^engd^x +COMM=^enga^n"},    {"TCON=", " -TCON=^Pop"},
        {"COMM=n|COMD=d", " -COMM=^engd^x +COMM=^engd^n"}, {"TCON=~|WCOM=b", " -TCON=^Pop +WCOM=b"},
        {"COMD=|COMM=n", " -COMM=^eng^z +COMM=^eng^n"},    {"POPM=u~65", " -POPM=u^d +POPM=u^A"},
        {"COMM=a~1~b~2", " +COMM=^enga^1 +COMM=^engb^2"},  {"TPE1= a b |TPE2-a=x", " +TPE1=^a b +TPE2=^x"},
        {"TIT2='  '|COMM=", " -TIT2=^Old -COMM=^eng^z"},   {"POPM=x~9~u~0", " -POPM=u^d +POPM=x^\t"},
        {"POPM=v~50~", " -POPM=v^2^^^\a +POPM=v^2"},       {"TIT2=a|TIT2=b|TALBxyz=", " -TIT2=^Old +TIT2=^a"},
        {"COMD=d|tit2=x|TDAT=x|TXXX=x|PE1=x|WCOM="},       {"TIT2= Old|TCON=Pop~|COMM=d~x~k"},
        {"WCOP=x|TPE1=|POPM=x~1~u~256~", "", kError},      {"POPM=u~100~x~0~|WCOM= a.b"}};
    Check(build::Tag(3, frames) + kAudio, kCases);
}

TEST_F(MassUpdateTest, NewTagsHaveTheVersionAskedForAndFieldsAsLongAsTheyFit) {
    const std::initializer_list<Case> kCases = {
        {"TYER=1|TORY=2", " +2.3 +TYER=^1 +TORY=^2"}, {"TYER=1|ID3V2Version=4", " +2.4 +TDRC=^1"},
        {"TIT2=x|ID3V2Version=256", "", kError},      {"ID3V1-TrackNum=255", " -| +|TAG +\xFF +\xFF", kFirst},
        {"ID3V1-Genre=0", " -| +|TAG", kFirst},       {"UntagID3V1=1|UntagID3V2=1"}};
    Check(kAudio, kCases);
    const auto keys = "ID3V1-Artist=a##|ID3V1-Title= t##|ID3V1-Album=b##|ID3V1-Year=20245|ID3V1-Comment=##"s;
    Check(kAudio, {{keys, " -| +|TAG +t#x +a#x +b#x +2024 +# +\xFF", kFirst}});
    EXPECT_EQ(RunOne("Path=" + folder_.Inside("a.mp3") + "|" + keys), kNothing);
    WriteSetting("Settings\\ID3V2Ver", "4", RegistryStore::kNumber);
    Check(kAudio, {{"TYER=1|TORY=2", " +2.4 +TDRC=^1 +TDOR=^2"}});
}

TEST_F(MassUpdateTest, OldTagsKeepTheirVersionAndAreRemovedBeforeTheirKeysApply) {
    const std::string v1 = " -|TAG -T -A -B -1999 -C -3 -G +|";
    const std::string v2 = " -2.3 -TIT2=^Old";
    // An ID3V1 key in front of the path comes first in the list and is not seen there.
    const std::initializer_list<Case> kCases = {
        {"ID3V1-TrackNum=none", " -3", kFirst},        {"ID3V1-Title=x|@"},
        {"ID3V1-Title=|ID3V1-Genre=256", "", kError},  {"ID3V1-Title=|@|ID3V1-Year=", " -T -1999", kFirst},
        {"ID3V1-Year=|ID3V1-TrackNum=-1", "", kError}, {"TIT2=x|ID3V2Version=2|UntagID3V2=1", "", kError},
        {"TYER=1|ID3V2Version=4", " +TYER=^1"},        {"ID3V1-Genre=", " -G +\xFF", kFirst},
        {"UntagID3V1=1|ID3V1=x", v1, kFirst},          {"untagid3v2=' 1 '|UntagID3V1=0", v2, kUntagged},
        {"ID3V1-Title=x|@|UntagID3V1=1", v1, kFirst},  {"UntagID3V1=1|UntagID3V2=1", v2 + v1, kFirst}};
    Check(kTagged, kCases);
    Check(kTagged, {{"ID3V1-Title=T|ID3V1-TrackNum=51.2|ID3V1-Genre=71|id3v1-Artist=x|ID3V1=x"},
                    {"TPE1=x|ID3V1-Title=|ID3V1-Genre=71|@", " -T +TPE1=^x", "ID3V1 updated - ID3V2 (OK)"},
                    {"UntagID3V1=1|ID3V1-Title=x", " -T -A -B -1999 -C -3 -G +x +\xFF", kFirst},
                    {"UntagID3V2=1|TPE1=x|ID3V2Version=4", v2 + " +2.4 +TPE1=^x"}});
    Check(build::Tag(3, build::Text(3, "TPE1", "\xFF\0\xE0"s), 128) + kAudio,
          {{"TIT2=x", " -TPE1=^\xFF^\xE0 +TPE1=^\xFF\xE0 +TIT2=^x"}});
}

TEST_F(MassUpdateTest, WhatCannotBeChangedStaysAsItIs) {
    Check(kAudio.substr(0, 400), {{"TIT2=x|UntagID3V2=1"}, {"ID3V1-Title=x", "", kDenied}});
    Check(build::TagOfSize(3, kFrame, 9999) + kAudio, {{"ID3V1-Title=x", "", kDenied}});
    Check(kAudio.substr(0, 401), {{"ID3V1-Genre="}});
    ::chmod(folder_.Host("a.mp3").c_str(), 0444);
    EXPECT_EQ(RunOne("Path=" + folder_.Host("a.mp3") + "|ID3V1-Title=x"), kDenied);
    EXPECT_EQ(RunOne("Path=" + folder_.Host("no.mp3") + "|TIT2=x") + RunOne("Path=x"), kNothing + kError);
}

TEST_F(MassUpdateTest, PathsComeQuotedOrNotAndInBothForms) {
    for (const std::string name : {"a b.mp3", "\xC3\xA9 \xD0\x96;=.Mp3", "raw \xFF.MP3"})
        for (const std::string& path : {folder_.Inside(name), "\"\" " + folder_.Host(name) + " \"\""}) {
            folder_.Write(name, kAudio);
            EXPECT_EQ(RunOne("Path=" + path + "|TIT2=x"), kSecond) << path;
            EXPECT_EQ(rows_.At(0).Text, folder_.Inside(name));
        }
}

TEST_F(MassUpdateTest, SectionsUpToTheCountRunInTheOrderOfTheirNumbersUntilStop) {
    const std::pair<std::string, std::string> kCases[] = {
        {"-3|[File1]|Path=a", "0"},
        {"3|[File1]|Path=a|[File2]|Path=stop|[File3]|Path=b", "3 1:a 2:stop"},
        {"\"3 files\"|[FILE3]|Path=c|[File1]|Path=a|[File3]|Path=b|[File4]|Path=d", "3 1:a 3:c"},
        {"9999999999|[File2147483647]|Path=z|[File9]|Path=x", "2147483647 9:x 2147483647:z"},
        {"9|[File1]|[File2]|TIT2=x|[File3]|PATH=x|[File4]|;Path=x|[File5]|Path=", "9 5:"},
        {"9|[File01]|Path=x|[File1]|Path=a|[File2x]|Path=x|[File2]|Path=b|[File 3]|Path=x", "9 1:a 2:b"}};
    for (const auto& [data, told] : kCases) {
        MassUpdate update = DataFile("[files]|count=" + data);
        std::string done = std::to_string(update.Count());
        update.Run([&](std::int32_t number, const RowList::Row& row) {
            done += " " + std::to_string(number) + ":" + row.Text;
            if (row.Text == "stop") update.Stop();
        });
        EXPECT_EQ(done, told) << data;
    }
}

TEST_F(MassUpdateTest, TheHelpTellsTheTextKeysAndAnExampleThatChangesEveryFile) {
    const std::string page = ReadHostFile(CALYVOX_SOURCE_DIR "/help/massupdate.html");
    std::size_t at = page.find("<h4 id=\"textkeys\">");
    for (int key = 0; key < 47; ++key) {
        at = page.find("<td><code>", at) + 10;
        Check(kAudio, {{page.substr(at, 4) + "=x", " +2.3 +" + page.substr(at, 4) + "=^x"}});
    }
    at = page.find("<pre id=\"example\">") + 18;
    std::string data = Replaced(page.substr(at, page.find("</pre>", at) - at), "&amp;", "&");
    data = Replaced(Replaced(data, "^A", "~"), "/home/me/Music", folder_.HostPath());
    for (const std::string name : {"Distant Bridges", "Frozen Clocks", "Hidden Kites", "Lonely Gardens"})
        folder_.Write(name + ".mp3", kTagged);
    DataFile(data).Run([](std::int32_t, const RowList::Row& row) {
        EXPECT_FALSE(row.Bold || RowList::Cell(row, 1) == kNothing) << row.Text;
    });
    EXPECT_EQ(rows_.Count(), 4U);
}

} // namespace
