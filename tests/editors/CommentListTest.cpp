// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/CommentList.h"

#include "app/Services.h"
#include "app/modBase.h"
#include "editors/ID3V1Exchange.h"
#include "editors/ID3V2Fields.h"
#include "editors/LanguageList.h"
#include "editors/ListRows.h"
#include "engine/EngineFixture.h"
#include "mainwindow/MainWindow.h"

using namespace calyvox;

namespace {

/// The cells of each row, the current row in brackets.
std::string Shown(const RowList& rows) {
    std::string all;
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        std::string row = rows.At(i).Text;
        for (const std::string& cell : rows.At(i).SubItems)
            row += "," + cell;
        all += i == rows.Current() ? "[" + row + "]" : row + ";";
    }
    return all;
}

TEST(CommentListTest, AnEntryOverwritesItsLikeOrBecomesTheLastRow) {
    const Services saved = TheServices();
    std::string boxes;
    TheServices().MessageBox = [&](const std::string& text, int, const std::string& title) {
        boxes += title + ": " + text;
        return MsgBox::kOk;
    };
    RowList rows;
    std::size_t language = 0;
    const std::tuple<CommentList::Entry, bool, std::string> entries[] = {
        {{" d ", 104, " a\r\nb\r "}, true, "[d,eng,a\nb]"},
        {{"d", 104, "c"}, true, "[d,eng,c]"},
        {{"d", 0, " \r "}, false, "[d,eng,c]"},
        {{"", kNoLanguage, "x"}, true, "[d,eng,c],eng,x;"},
        {{"d", 1, "x\ny\r\nz"}, true, "[d,eng,c],eng,x;d,ada,x\ny\nz;"}};
    for (auto [entry, accepted, shown] : entries) {
        EXPECT_EQ(CommentList::btnOK_Click(rows, entry, language), accepted);
        EXPECT_EQ(language, entry.Language);
        EXPECT_EQ(Shown(rows), shown);
    }
    EXPECT_EQ(boxes, "No comment: Please enter a comment");
    TheServices() = saved;
    EXPECT_EQ(CommentList::btnAddCOMM_Click().Language, 1U) << "the last one entered";
    rows.SetCurrent(2);
    CommentList::btnCOMMStandard_Click(rows);
    EXPECT_EQ(Shown(rows), "[d,ada,x\ny\nz]d,eng,c;,eng,x;");
    rows.SetCell(0, CommentList::kLanguage, "DEU");
    rows.SetCell(0, CommentList::kComment, "x\r\ny\nz");
    EXPECT_EQ(CommentList::btnEditCOMM_Click(rows)->Comment, "x\r\ny\r\nz");
    EXPECT_EQ(LanguageCode(CommentList::btnEditCOMM_Click(rows)->Language), "deu");
    WriteDefaultLanguageRow(kLanguageCount);
    EXPECT_EQ(DefaultLanguageRow(), 104U) << "no row of that number";
}

TEST(CommentListTest, ButtonsActOnTheSelectedRowAndFlagItsFirstFrame) {
    ID3V2 frames;
    for (const char* content : {"a", "b"})
        frames.Add(Make("COMM", content, 0, "d", "eng"), {}, true);
    frames.Add(Make("WCOM", "Pop"), {}, true);
    RowList comments, rows;
    for (const char* descriptor : {"d", "new"})
        CommentList::AddRow(comments, descriptor, "eng", "x");
    for (const bool flagged : {true, false, false})
        EXPECT_EQ(CommentList::btnRemoveCOMM_Click(comments, frames), flagged);
    for (const char* box : {" Rock ", "rock", " ", "Rock", "Pop"})
        ListRows::AddNew(rows, box);
    ListRows::MoveSelectedToTop(rows);
    ListRows::RemoveSelected(rows);
    EXPECT_FALSE(CommentList::btnRemoveCL_Click(rows, frames));
    EXPECT_EQ(Shown(rows), "[Rock]rock;Pop;") << "nothing selected";
    rows.SelectOnly(2, 2);
    rows.SetCurrent(2);
    ListRows::MoveSelectedToTop(rows);
    EXPECT_EQ(Shown(rows), "[Pop]Rock;rock;");
    EXPECT_TRUE(CommentList::btnRemoveCL_Click(rows, frames));
    ListRows::RemoveSelected(rows);
    EXPECT_EQ(Shown(rows), "[Rock]rock;");
    EXPECT_TRUE(frames.Item(1).Remove() && !frames.Item(2).Remove() && frames.Item(3).Remove());
    EXPECT_FALSE(frames.Changed());
}

TEST(CommentListTest, TypingCompletesToTheFirstRow) {
    const std::tuple<std::string, std::optional<std::size_t>, char, std::string> keys[] = {
        {"r", {}, 'o', "2/2"}, {"Rock", 1, 'A', "1/2"}, {"Rock", {}, 'A', ""}, {"", {}, '\x8', ""}};
    for (const auto& [text, selection, key, completed] : keys) {
        const auto found = ListRows::Complete({"", "Rap", "Rock", "Rock & Roll"}, text, selection, key);
        EXPECT_EQ(found ? std::to_string(found->Row) + "/" + std::to_string(found->Typed) : "", completed);
    }
}

struct ID3V1ExchangeTest : testing::Test {
    MP3& Load(const std::string& record) {
        modBase::VerShow = 1;
        modBase::LoadedMP3s = std::make_unique<MP3s>();
        MP3& file = modBase::LoadedMP3s->Add(std::make_unique<MP3>(), "");
        file.ExploreMP3(TempFolder().Write("a.mp3", build::Audio() + record));
        Window.FileList.Clear();
        Window.FileList.Add("a").Tag = 1;
        return file;
    }
    const std::string Full = build::Id3v1({"T", "A", "B", "99", "C", 5, 17});
    HostScope Host;
    MainWindow Window;
};

TEST_F(ID3V1ExchangeTest, ImportingLeavesWhatTheTagDoesNotHave) {
    const std::tuple<std::string, std::string> rows[] = {
        {"", "m|m|m|m|m|m|m|m|[Rock]Pop;< undefined >;|"},
        {build::Id3v1({}), "m|m|m|m|m|m|m|m|Rock;[Pop]|"},
        {Full, "A|T|B|5|0099|Rock|C|ID3V1-Comment|[Pop]Rock;|[ID3V1-Comment,eng,C]"}};
    for (const auto& [record, imported] : rows) {
        const MP3& file = Load(record);
        ID3V2Fields fields;
        fields.Language = 104;
        const auto boxes = {"TPE1", "TIT2", "TALB", "TRCK", "TYER", "TCONSingle", "Comment", "Descriptor"};
        for (const char* box : boxes)
            fields.SetText(box, "m");
        for (const char* genre : {"Rock", "Pop", "< undefined >"})
            fields.GenreList.Add(genre);
        ID3V1Exchange::btnImport_Click(file, fields);
        ID3V1Exchange::btnImport_Click(file, fields);
        ID3V1Exchange::ID3V1_Click(ID3V1Exchange::SingleGenre, file, fields);
        ID3V1Exchange::ID3V1_Click(ID3V1Exchange::SingleComment, file, fields);
        std::string shown;
        for (const char* box : boxes)
            shown += fields.Text(box) + "|";
        EXPECT_EQ(shown + Shown(fields.GenreList) + "|" + Shown(fields.COMMList), imported);
    }
}

TEST_F(ID3V1ExchangeTest, ExportingCutsAndMarksADifferenceAlone) {
    const std::string a30(30, 'a'), a28(28, 'a');
    const std::tuple<bool, std::string, std::string, build::V1Fields, std::string> rows[] = {
        {false,
         "",
         "Blue  grass ",
         {"", a30, "", "2004", "c", 5, 89},
         "Yes," + a30 + ",,,c,Bluegrass,2004,05"},
        {false, Full, "", {"", a30, "", "2004", "C", 5, 17}, "Yes," + a30 + ",,,C,Rock,2004,05"},
        {true,
         Full,
         "",
         {"", a30, "", "2004", a28, 5, 255},
         "Yes," + a30 + ",,," + a28 + ",< undefined >,2004,05"}};
    for (const auto& [single, record, genre, exported, cells] : rows) {
        modBase::SingleCOMMGenre() = single;
        MP3& file = Load(record);
        ID3V2Fields fields;
        for (const char* box : {"TPE1", "Comment"})
            fields.SetText(box, " " + a30 + "a");
        fields.SetText("TRCK", " 5");
        fields.SetText("TYER", "20045");
        if (ListRows::AddNew(fields.GenreList, genre))
            CommentList::AddRow(fields.COMMList, "m", "eng", " c ");
        ID3V1Exchange::btnExport_Click(fields, Window, 0);
        EXPECT_EQ(Shown(Window.FileList), "[a," + cells + ",,,,,,,Y]");
        EXPECT_EQ(file.ID3V1_CreateTag(), build::Id3v1(exported));
        file.SetChanged(false);
        ID3V1Exchange::btnExport_Click(fields, Window, 0);
        EXPECT_FALSE(file.Changed()) << "the second time";
        fields.SetText("TRCK", "300");
        EXPECT_THROW(ID3V1Exchange::btnExport_Click(fields, Window, 0), Failure);
    }
}

} // namespace
