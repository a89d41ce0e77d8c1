// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/clsCommandLine.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

using namespace calyvox;

namespace {

using Texts = std::pair<std::string, std::string>;
using Arguments = std::vector<std::string>;

// Path, file and data file, each ended by "|", then "A" where unattended and "N" where nothing is saved.
std::string Resolved(const std::string& text) {
    clsCommandLine line;
    line.Resolve(text);
    return line.Path() + "|" + line.Filename() + "|" + line.DataFilePath() + "|" +
           (line.AutoModus() ? "A" : "") + (line.Save() ? "" : "N");
}

TEST(CommandLineTest, SwitchesAreTakenByTheirRules) {
    const Texts rows[] = {
        {"/P=\\a.mp3", "\\|a.mp3||"},         {"//X=1/A=TRUE/S=NO /S=YES", "|||AN"},
        {"/P=ab.mp3", "|ab.mp3||"},           {"\"/P=\\Music /S=no\"", "\\Music|||N"},
        {"\\Music\\My\\a.mp3", "|||"},        {"/I= \\x.ini /A=1 /S=0", "||\\x.ini|"},
        {"/P=C:/Music/a.mp3", "C:|||"},       {"text /P=\\M\\a.mp3 /A= True", "\\M|a.mp3||A"},
        {"/P=\\a.mp3 /P=\\B\\", "\\B\\|||"},  {"/p= \"\\My A\\B.MP3\" ", "\\My A|B.MP3||"},
        {"/P=\\a.mp3 /P=\\B", "\\B|a.mp3||"}, {"/I=\"\\a b\" /A=\"true\"", "||\\a b\"|A"}};
    for (const auto& [text, meaning] : rows)
        EXPECT_EQ(Resolved(text), meaning) << text;
}

class CommandTextTest : public testing::Test {
protected:
    CommandTextTest() {
        for (const char* name : {"here", "here/sub", "here/my dir", "here/NO", "12\"", "there"})
            ::mkdir(folder_.Host(name).c_str(), 0777);
        folder_.Write("here/\u0416", "");
        EXPECT_EQ(::symlink("../there", folder_.Host("here/link").c_str()), 0);
    }
    std::string Text(const Arguments& all) const { return CommandText(all, folder_.Host("here")); }

    TempFolder folder_;
    std::string here_ = folder_.Inside("here");
};

TEST_F(CommandTextTest, PathsBecomeAbsoluteInsidePathsAndNothingElseDoes) {
    const std::pair<Arguments, std::string> rows[] = {
        {{"/P=/no/such//./dir/", "/P=/.."}, R"(/P=\no\such\dir\ /P=\)"},
        {{"/x=../there", "/S=NO", "b/c"}, "/x=" + folder_.Inside("there") + " /S=NO b/c"},
        {{"/P=my", "dir", "/P=sub/none", "/P=", "/1=/a", "//P=/a"}, "/P=my dir /P=sub/none /P= /1=/a //P=/a"},
        {{"/p=my dir", "/P=./none"}, "/p=" + here_ + R"(\my dir /P=)" + here_ + R"(\none)"},
        {{"/P=\"my dir\"", "/A=TRUE"}, "/P=" + here_ + R"(\my dir /A=TRUE)"},
        {{"/I=sub/..", "/P=link/.."}, "/I=" + here_ + " /P=" + here_ + R"(\link\..)"},
        {{"/P=\u0416"}, "/P=" + here_ + "\\\x1A" + "0001046"},
        {{"/P=\\\u00E9\\x\xFF"}, "/P=\\\xE9\\x\x1A" + std::string("1114367")}};
    for (const auto& [arguments, text] : rows)
        EXPECT_EQ(Text(arguments), text);
}

} // namespace
