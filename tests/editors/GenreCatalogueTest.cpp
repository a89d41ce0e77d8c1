// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/GenreCatalogue.h"

#include "app/IniFile.h"
#include "editors/GenreRows.h"
#include "support/FailingCalls.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace calyvox;

struct GenreCatalogueTest : testing::Test {
    // "text|column 1|column 2" of each row.
    std::string Shown() const {
        std::string shown;
        for (std::size_t cell = 0; cell < Catalogue.OwnGenre.Count() * 3; ++cell)
            shown += RowList::Cell(Catalogue.OwnGenre.At(cell / 3), cell % 3) + (cell % 3 == 2 ? " " : "|");
        return shown;
    }
    std::string Read(const std::string& text) {
        return Catalogue.ReadGenres(Files.Write("Calyvox.ini", text)), Shown();
    }
    std::string Add(const std::string& name, std::uint8_t genre1, std::uint8_t genre2) {
        return Catalogue.Add({name, GenreRowOf(genre1), GenreRowOf(genre2)}), Shown();
    }
    TempFolder Files;
    GenreCatalogue Catalogue;
    const std::string No = "< undefined >"; // relation
};

TEST_F(GenreCatalogueTest, ReadingPassesOverWhatMakesNoSense) {
    EXPECT_EQ(Read("[Genre]\n1=a\n3=c\n[TwoToOne]\nA=17\n"), "a|" + No + "|Rock ");
    EXPECT_EQ(Read("[Genre]\n1=a\n[OneToTwo]\n125=x\n17=a\n0=a\n126=a\n"), "a|Rock|" + No + " ");
    for (const char* number : {"126", "17x", "273", "-1", ""})
        EXPECT_EQ(Read(std::string("[Genre]\n1=a\n[TwoToOne]\na=") + number), "a|" + No + "|" + No + " ");
}

TEST_F(GenreCatalogueTest, AnID3V1GenreIsTakenFromItsRowBeforeItIsGiven) {
    EXPECT_EQ((Add("  ", 17, 17), Add(" Rock ", 17, 1)), "Rock|Rock|Classic Rock ");
    EXPECT_EQ(Add("rock", 32, 0), "rock|Classical|Blues ") << "the new spelling, no new row";
    EXPECT_EQ(Add("b", 32, 1), "rock|" + No + "|Blues b||Classic Rock ");
    EXPECT_EQ(Add("B", 32, 1), "rock|" + No + "|Blues B|Classical|Classic Rock ");
    EXPECT_EQ(Add("c", 255, 0), "rock|" + No + "|Blues B|Classical|Classic Rock c||Blues ");
    EXPECT_EQ(Add("B", 32, 0), "rock|" + No + "|Blues B|" + No + "|Blues c||Blues ") << "from itself too";
}

TEST_F(GenreCatalogueTest, WritingReplacesItsThreeSectionsInOneStep) {
    const std::string others = "; mine\r\n[Formats]\r\n1 = %A\r\n";
    Read(others + "[Genre]\n1=x\n[TwoToOne]\nx=1\n[OneToTwo]\n9=z\n");
    Add("Y", 17, 255), Add("[b]", 1, 2), Catalogue.Remove();
    for (int i = 3; i <= 300; ++i)
        Add("g" + std::to_string(i), 255, 0);
    const FailingCalls second(HostCalls::Call::Rename, 2, EACCES);
    const std::string file = IniFilePath(Files.Inside("calyvox")); // where it is already
    EXPECT_TRUE(Catalogue.WriteGenres(file) && second.Seen() == 1);
    const std::string text = Files.Read("Calyvox.ini");
    EXPECT_EQ(text.find("[Genre]\r\n1=Y\r\n2=[b]\r\n3=g3\r\n"), others.size());
    EXPECT_NE(text.find("\n[OneToTwo]\r\n17=Y\r\n1=[b]\r\n[TwoToOne]\r\nY=255\r\ng3=0\r\n"), text.npos);
}
