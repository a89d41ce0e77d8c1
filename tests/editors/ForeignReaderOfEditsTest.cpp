// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/modBase.h"
#include "editors/CommentList.h"
#include "editors/FrameControls.h"
#include "editors/ID3V2Fields.h"
#include "editors/ListRows.h"
#include "engine/EngineFixture.h"
#include "mainwindow/MainWindow.h"

#include <commentsframe.h>
#include <id3v2tag.h>
#include <mpegfile.h>

#include <cstring>
#include <set>
#include <sstream>

using namespace calyvox;

namespace {

// Each text with the control's name in it, numbers where the control takes numbers.
std::string ValueOf(const std::string& control) {
    if (control == "TYER" || control == "TORY") return "1987";
    if (control == "TDAT" || control == "TIME") return "1205";
    return control + " \xE4\xDF";
}

// What another reader must find: the frame and its text. It shows the dates of both versions as those of 2.4,
// and has no place for recording dates.
std::string Expected(const std::string& control) {
    if (control == "TDAT" || control == "TIME" || control == "TRDA") return {};
    if (control == "TYER") return "TDRC=1987-05-12T12:05\n";
    if (control == "TORY") return "TDOR=1987\n";
    return control + "=" + ValueOf(control) + "\n";
}

TEST(ForeignReaderOfEditsTest, AnotherReaderFindsEveryFieldThatWasFilledIn) {
    const TempFolder folder;
    const HostScope host;
    for (const int version : {3, 4}) {
        modBase::LoadedMP3s = std::make_unique<MP3s>();
        MP3& file = modBase::LoadedMP3s->Add(std::make_unique<MP3>(), "");
        std::string opaque("owner\0\xFF\xFB", 8);
        if (version == 4) opaque += '\0'; // every 2.4 frame ends in one
        const std::string unknown = build::Frame(version, "PRIV", opaque);
        file.ExploreMP3(folder.Write("a.mp3", build::Tag(version, unknown) + build::Audio()));
        MainWindow window;
        window.FileList.Add("a").Tag = 1;
        ID3V2Fields fields;
        fields.LoadTag(window, 0);
        std::string expected = "TRCK=3/9\nTPOS=1/2\nTCON=Own Genre\nWCOM=http://c\nCOMM=Text\n";
        for (const auto& control : FrameControls::kControls) {
            fields.SetText(std::string(control.ID), ValueOf(std::string(control.ID)));
            expected += Expected(std::string(control.ID));
        }
        for (const char* pair : {"TRCK3", "TRCKTotal9", "TPOS1", "TPOSTotal2"})
            fields.SetText(std::string(pair, std::strlen(pair) - 1), pair + std::strlen(pair) - 1);
        ListRows::AddNew(fields.GenreList, "Own Genre");
        ListRows::AddNew(fields.CommInfoList, "http://c");
        CommentList::AddRow(fields.COMMList, "d", "ger", "Text");
        fields.SaveTag(window, 0);
        ASSERT_TRUE(file.Changed() && file.WriteTags(true, false));

        TagLib::MPEG::File written(folder.Host("a.mp3").c_str());
        std::set<std::string> found;
        for (const TagLib::ID3v2::Frame* frame : written.ID3v2Tag()->frameList())
            found.insert(std::string(frame->frameID().data(), 4) + "=" + frame->toString().to8Bit());
        std::istringstream lines(expected);
        for (std::string line; std::getline(lines, line);)
            EXPECT_TRUE(found.contains(line)) << version << " " << line;
        EXPECT_NE(folder.Read("a.mp3").find(unknown), std::string::npos);
        EXPECT_EQ(written.ID3v2Tag()->header()->majorVersion(), static_cast<unsigned>(version));
    }
}

} // namespace
