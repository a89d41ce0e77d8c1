// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/ID3V1Fields.h"

#include "app/modBase.h"
#include "mainwindow/MainWindow.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace calyvox;

TEST(ID3V1FieldsTest, OnlyADifferenceReachesFileAndRow) {
    const std::string odd = build::Id3v1({"T", "A", "", "", "", 7, 200});
    const std::string sung = build::Id3v1({"T", "A", "B", "1999", "C", 255, 28});
    const std::string blank = build::Id3v1({"", "A", "", "", "", 0, 255});
    const std::tuple<int, std::string, ID3V1Fields, std::string, std::string> rows[] = {
        {1, "", {"", "", "", "", "", ""}, "", ""},
        {1, odd, {"A ", " T", "", " 07", "", ""}, odd.substr(0, 127) + '\xFF', ""},
        {1, "", {" A ", " ", "", "x7", "", ""}, blank, "Yes|A||||< undefined >||0|||||||Y|"},
        {1, blank, {"A", "T", "B", "300", "1999", "C", 126}, sung, "Yes|A|T|B|C|Vocal|1999|255|||||||Y|"},
        {2, sung, {"A", "", "", "00", "", ""}, blank, "Yes||||||||||||||Y|"}};
    for (const auto& [view, onDisk, fields, saved, row] : rows) {
        MainWindow window;
        modBase::VerShow = static_cast<std::uint8_t>(view);
        modBase::LoadedMP3s = std::make_unique<MP3s>();
        MP3& file = modBase::LoadedMP3s->Add(std::make_unique<MP3>(), "");
        file.ExploreMP3(TempFolder().Write("a.mp3", build::Audio() + onDisk));
        window.FileList.Add("a").Tag = 1;
        ID3V1Fields::LoadTag(file).SaveTag(window, 0);
        EXPECT_FALSE(file.Changed()) << "as it was loaded";
        fields.SaveTag(window, 0);
        std::string shown;
        for (const std::string& cell : window.FileList.At(0).SubItems)
            shown += cell + "|";
        EXPECT_EQ(shown + file.ID3V1_CreateTag(), row + saved);
        EXPECT_EQ(file.Changed(), !row.empty());
    }
}
