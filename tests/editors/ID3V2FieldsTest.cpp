// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/ID3V2Fields.h"

#include "app/SettingsCatalogue.h"
#include "app/modBase.h"
#include "editors/CommentList.h"
#include "editors/FrameControls.h"
#include "editors/LanguageList.h"
#include "engine/EngineFixture.h"
#include "mainwindow/MainWindow.h"
#include "platform/CodePage.h"

#include <filesystem>
#include <functional>
#include <set>
#include <sstream>

using namespace calyvox;

namespace {

/// Parted by ",": an ID and what is behind the first "=".
std::vector<std::pair<std::string, std::string>> Pairs(const std::string& text) {
    std::vector<std::pair<std::string, std::string>> pairs;
    std::istringstream parts(text);
    for (std::string part; std::getline(parts, part, ',');)
        pairs.emplace_back(part.substr(0, part.find('=')), part.substr(part.find('=') + 1));
    return pairs;
}

struct ID3V2FieldsTest : testing::Test {
    MP3& Load(const std::string& bytes) {
        modBase::LoadedMP3s = std::make_unique<MP3s>();
        MP3& file = modBase::LoadedMP3s->Add(std::make_unique<MP3>(), "");
        file.ExploreMP3(Folder.Write("a.mp3", bytes));
        Window.FileList.Clear();
        Window.FileList.Add("a").Tag = 1;
        Fields.ClearControls();
        Fields.LoadTag(Window, 0);
        return file;
    }
    /// A file with these frames, texts of encoding 0; none for version 0.
    MP3& Load(int version, const std::string& frames) {
        std::string body(1, '\0');
        for (const auto& [id, content] : Pairs(frames))
            body.insert(body.size() - 1,
                        build::Frame(version, id, (id[0] == 'T' || id == "COMM" ? "\0"s : "") + content));
        return Load((version == 0 ? "" : build::Tag(version, body)) + build::Audio());
    }
    /// What the file's frames are after saving.
    std::string Save(MP3& file) {
        Fields.SaveTag(Window, 0);
        std::string all;
        for (V2Frame& frame : file.ID3V2())
            all += frame.FrameHeader_FrameID() + "=" + calyvox::Fields(frame) + " ";
        return all;
    }

    HostScope Host;
    TempFolder Folder;
    MainWindow Window;
    ID3V2Fields Fields;
};

TEST_F(ID3V2FieldsTest, DatesComeFromFramesAndGoIntoThoseOfTheVersion) {
    const std::string wide = "\xFF\xFE"s + "1\0009\0009\0009"s;
    const std::tuple<int, std::string, std::string, std::string, std::string> rows[] = {
        {3, "TYER=1999,TDRC=2002", "2002|||", "", "TDRC=0|2002 TYER=0|2002 "},
        {3, "TDRC=2002,TYER=1999", "1999|||", "", "TDRC=0|2002 TYER=0|1999 "},
        {4, "TYER=1999", "1999|||", "", "TYER=0|1999 TDRC=0|1999 "},
        {4, "TDRC=2002-05", "2002|0005||", "", "TDRC=0|2002-05 "},
        {4, "TDRC=2002-05-17", "2002|1705||", "", "TDRC=0|2002-05-17 "},
        {4, "TDRC=2002-05-17T13:45:01", "2002|1705|1345|", "", "TDRC=0|2002-05-17T13:45 "},
        {4, "TDRC=2002-05-17T13", "2002|1705|1300|", "", "TDRC=0|2002-05-17T13:00 "},
        {4, "TDRC=2002 05 17T13:4", "2002||134|", "", "TDRC=0|2002 "},
        {4, "TDRC=2002-", "2002|00||", "", "TDRC=0|2002 "},
        {4, "TDOR=1985-11", "|||1985", "", "TDOR=0|1985 "},
        {4, "", "|||", "TYER=99,TDAT=0000,TIME=1345", "TDRC=0|0099 "},
        {4, "", "|||", "TYER=2001,TDAT=0012,TIME=1345", "TDRC=0|2001-12 "},
        {4, "", "|||", "TYER=2001,TDAT=1700", "TDRC=0|2001 "},
        {4, "", "|||", "TYER=2001,TDAT=abcd,TRDA=May", "TDRC=0|2001 "},
        {4, "", "|||", "TYER=1,TDAT=117,TIME=5", "TDRC=0|0001-17-01T00:05 "},
        {4, "TDRC=2001", "2001|||", "TYER=,TDAT=1705", ""},
        {3, "", "|||", "TYER=99,TDAT=5,TIME=abc,TRDA=M", "TYER=0|0099 TDAT=0|0005 TIME=0|0abc TRDA=0|M "},
        {3, "TDAT=1705,TORY=1985", "|1705||1985", "TDAT=,TORY=85", "TORY=0|0085 "},
        {2, "", "|||", "TYER=1999,TORY=1985", ""},
        {3, "TYER=" + wide + ",TORY=" + wide, wide + "|||" + wide, "",
         "TYER=0|" + wide + " TORY=0|" + wide + " "},
        {4, "TDRC=" + wide, wide.substr(0, 4) + "|||", "", "TDRC=0|" + wide + " "},
        {4, "TDRC=" + wide, wide.substr(0, 4) + "|||", "TYER=1", "TDRC=0|0001 "},
        {3, "TDRC=" + wide + ",TDOR=" + wide, "|||", "", "TDRC=0|" + wide + " TDOR=0|" + wide + " "},
        {4, "TDRC=1999,TYER=" + wide, "1999|||", "", "TYER=0|" + wide + " TDRC=0|1999 "},
        {3, "TYER=2005-03-22,TIME=12\n", "2005||12\n|", "", "TYER=0|2005-03-22 TIME=0|12\n "},
        {3, "TYER=2005-03-22", "2005|||", "TYER=2006", "TYER=0|2006 "}};
    for (const auto& [version, frames, shown, texts, saved] : rows) {
        MP3& file = Load(version, frames);
        std::string boxes = Fields.Text("TYER");
        for (const char* control : {"TDAT", "TIME", "TORY"})
            boxes += "|" + Fields.Text(control);
        EXPECT_EQ(boxes, shown);
        for (const auto& [control, text] : Pairs(texts))
            Fields.SetText(control, text);
        EXPECT_EQ(Save(file), saved);
    }
    for (const auto& [setting, saved] : Pairs("3=TYER=0|1999 ,2=TDRC=0|1999 ")) {
        WriteSetting("Settings\\ID3V2Ver", setting, RegistryStore::kNumber);
        MP3& file = Load(0, "");
        Fields.SetText("TYER", "1999");
        EXPECT_EQ(Save(file), saved);
    }
}

TEST_F(ID3V2FieldsTest, SavingWithoutAChangeMarksNothing) {
    const std::string wide = "\xFF\xFEh\0i\0"s;
    const std::string frames =
        "TIT2=a\r\nb,TPE1=" + wide +
        ",TCON=Rock \0 Pop\0Rock\0\0,TRCK=3/12/x,TPOS=/2,TMED=< undefined >,COMM=ENGa\0b\r\nc,COMM=eng\0b,"
        "WCOM=b,WCOM=a,WPUB=x\0y,POPM=me\0\x05\0\0,APIC= \0 ,TXXX= a\0 b,UFID= "s;
    for (const int version : {3, 4}) {
        MP3& file = Load(version, frames);
        const std::int64_t count = file.ID3V2().Count();
        EXPECT_FALSE(Fields.HoldsUnicode());
        const std::string saved = Save(file);
        EXPECT_FALSE(file.Changed() || file.ID3V2().Changed()) << saved;
        EXPECT_EQ(file.ID3V2().Count(), count);
    }
    modBase::SingleCOMMGenre() = true;
    for (const auto& [body, unicode] : {std::pair{"\1" + wide, true}, std::pair{"\3hi"s, false}}) {
        MP3& file = Load(build::Tag(4, build::Frame(4, "TCON", body)) + build::Audio());
        EXPECT_EQ(Fields.HoldsUnicode(), unicode);
        Fields.SaveTag(Window, 0);
        EXPECT_FALSE(file.Changed()) << "the NUL of a letter parts no genres";
    }
}

/// Why the rules of saving change a frame of which nothing was changed; empty where they do not.
std::string WhyChanged(V2Frame& frame, int version) {
    const std::string& id = frame.FrameHeader_FrameID();
    std::string content, descriptor, language = "eng";
    Visit(frame, [&](auto& f) {
        if constexpr (requires { f.Content(); }) content = f.Content();
        if constexpr (requires { f.Descriptor(); }) descriptor = f.Descriptor();
        if constexpr (requires { f.Lan(); }) language = f.Lan();
    });
    const bool year = id == "TYER" || id == "TORY";
    const bool of4 = id == "TDRC" || id == "TDOR";
    if (!FrameControls::Shows(id) && !of4 && id != "COMM" && id != "TCON" && id != "TRCK") return {};
    if (content.empty() && id != "COMM") return "a frame without text goes";
    if (CodePage::Trim(content + descriptor) != content + descriptor) return "blanks at an end go";
    if (LanguageRowOf(language) == kNoLanguage) return "an unknown language becomes the default one";
    const bool wide = content.find('\0') != std::string::npos;
    if ((version == 4 ? year : of4) && !wide) return "the tag gets the date frames of its own version";
    if (year && content.size() < 4) return "a year has four digits";
    if (id == "TDOR" && content.size() != 4) return "TDOR carries the year only";
    if (id == "TDRC" && content.size() > 16) return "TDRC ends with the minutes";
    return {};
}

TEST_F(ID3V2FieldsTest, SavingForeignFilesChangesWhatTheRulesChange) {
    if (!std::filesystem::is_directory(CALYVOX_CORPUS)) return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(CALYVOX_CORPUS)) {
        if (!entry.is_regular_file()) continue;
        MP3 untouched;
        untouched.ExploreMP3(Folder.Write("a.mp3", ReadHostFile(entry.path().string())));
        std::string why;
        std::set<std::string> met;
        for (V2Frame& frame : untouched.ID3V2()) {
            if (why.empty()) why = WhyChanged(frame, untouched.TagHeader_Version());
            const std::string& id = frame.FrameHeader_FrameID();
            if (FrameControls::Shows(id) && !met.insert(id).second) why = "a box has room for one frame";
        }
        MP3& file = Load(ReadHostFile(entry.path().string()));
        const std::string saved = Save(file);
        EXPECT_EQ(file.Changed(), !why.empty()) << entry.path() << why << saved;
    }
}

TEST_F(ID3V2FieldsTest, FramesAreMadeAnewInOrderBehindThoseNotShown) {
    const std::string names = "TPE1 TPE2 TPE3 TPE4 TIT1 TIT2 TIT3 TALB TRCK TPOS TMED ";
    const std::string details = "TBPM TCOM TCOP TENC TEXT TOAL TOFN TOLY TOPE ";
    const std::string rest = "TOWN TPUB TCON WCOP WOAF WOAR WOAS WORS WPAY WPUB ";
    const std::string dates3 = "TYER TDAT TIME TRDA ";
    for (const int version : {3, 4}) {
        MP3& file = Load(version, "TALB=old,PRIV= \0x ,TXXX= d\0c ,USLT=\0engd\0c,POPM=me\0\5\0\7,TSSE= "s);
        Fields.GenreList.Add("Rock");
        Fields.CommInfoList.Add("u");
        for (const char* comment : {"b", "c"})
            CommentList::AddRow(Fields.COMMList, comment, "eng", comment);
        std::string before, after, order;
        for (V2Frame& frame : file.ID3V2())
            if (!FrameControls::Shows(frame.FrameHeader_FrameID()))
                before += frame.CreateFrame(HeaderOf(version));
        std::istringstream ids(names + details + rest + dates3 + "TORY");
        for (std::string id; ids >> id;)
            Fields.SetText(id, id == "TDAT" ? "0101" : "1999");
        modBase::VerShow = 2;
        Fields.SaveTag(Window, 0);
        for (V2Frame& frame : file.ID3V2()) {
            order += frame.FrameHeader_FrameID() + " ";
            if (after.size() < before.size()) after += frame.CreateFrame(HeaderOf(version));
        }
        EXPECT_EQ(after, before);
        EXPECT_EQ(order, "PRIV TXXX USLT POPM TSSE " + names + (version == 3 ? dates3 : "TDRC ") + details +
                             (version == 3 ? "TORY " : "TDOR ") + rest + "WCOM COMM COMM ");
        const std::vector<std::string> cells = {"1999", "1999", "1999", "b", "Rock", "1999", "1999"};
        const auto& shown = Window.FileList.At(0).SubItems;
        EXPECT_EQ(std::vector(shown.begin() + 1, shown.begin() + 8), cells);
        EXPECT_EQ(shown.back(), "Y");
    }
}

TEST_F(ID3V2FieldsTest, LayoutsRemovalsAndCancel) {
    const std::string two = "TCON=Rock\0Pop,COMM=gera\0b,COMM=xxx\0d,COMM=eng\0c"s;
    const std::string kept = "PRIV=x,TMED=m,POPM=a\0\1,POPM=b\0\2"s;
    const auto nothing = [](MP3&) {};
    const auto uncheck = [this](MP3&) {
        Fields.SupportList.SetChecked(0, false);
        Fields.POPMList.SetChecked(1, false);
        Fields.SetText("TMED", "< undefined >");
    };
    const auto blank = [this](MP3&) {
        for (const auto& [control, text] : Pairs("Comment= ,TMED=,TALB= "))
            Fields.SetText(control, text);
    };
    const auto remove = [this](MP3& file) {
        Fields.CommRemoved = CommentList::btnRemoveCOMM_Click(Fields.COMMList, file.ID3V2());
    };
    const auto cancel = [this](MP3& file) {
        CommentList::btnRemoveCOMM_Click(Fields.COMMList, file.ID3V2());
        ID3V2Fields::btnCancel_Click(file);
    };
    const std::tuple<bool, std::string, std::function<void(MP3&)>, std::string, bool> rows[] = {
        {false, two, nothing, "TCON=0|Rock\0Pop COMM=0|ger|a|b COMM=0|eng||d COMM=0|eng||c "s, true},
        {true, two, nothing, "TCON=0|Rock\0Pop COMM=0|ger|a|b "s, true},
        {false, "COMM=ENG\0c"s, nothing, "COMM=0|ENG||c ", false},
        {true, "COMM=ENG\0c"s, nothing, "COMM=0|ger||c ", true},
        {true, two, blank, "TALB=0| TCON=0|Rock\0Pop "s, true},
        {true, two, [this](MP3&) { Fields.SetText("TCONSingle", "Jazz"); }, "TCON=0|Jazz COMM=0|ger|a|b ",
         true},
        {false, "COMM=eng\0c"s, remove, "", true},
        {false, "COMM=eng\0c"s, cancel, "COMM=0|eng||c ", false},
        {false, kept, uncheck, "TMED=0|m POPM=a|1| ", true},
        {false, kept, blank, "PRIV=x POPM=a|1| POPM=b|2| TALB=0| ", true}};
    for (const auto& [single, frames, act, saved, changed] : rows) {
        modBase::SingleCOMMGenre() = single;
        MP3& file = Load(3, frames);
        act(file);
        EXPECT_EQ(Save(file), saved);
        EXPECT_EQ(file.Changed(), changed) << saved;
    }
}

} // namespace
