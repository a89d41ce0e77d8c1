// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/SettingsCatalogue.h"
#include "app/Version.h"
#include "platform/HostPath.h"
#include "support/Mp3Builder.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace calyvox;

namespace {

const std::string kOk = "ID3V1 (Not updated) - ID3V2 (OK)";

class ProgramTest : public testing::Test {
protected:
    // As a user without a display starts it.
    ProgramResult Run(const std::vector<std::string>& words, const std::string& setting = "DISPLAY") const {
        const std::string runtime = "XDG_RUNTIME_DIR=" + folder_.HostPath();
        return RunProgram(words, {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", runtime, setting});
    }
    // A data file over one new audio file of that host name; the argument that names it.
    std::string DataFile(const std::string& file, const std::string& name = "data.ini") const {
        folder_.Write(file, build::Audio());
        folder_.Write(name, "[Files]\nCount=1\n[File1]\nPath=" + folder_.Host(file) + "\nTIT2=x\n");
        return "/I=" + folder_.Host(name);
    }
    std::string Row(const std::string& name, const std::string& result) const {
        return HostPath::Shown(folder_.Inside(name)) + "\t" + result + "\n";
    }

    TempFolder folder_;
};

TEST_F(ProgramTest, WithoutADisplayRowsArePrintedAndTheRunEndsByItself) {
    for (const char* display :
         {"DISPLAY=:99999", "QT_QPA_PLATFORM=offscreen", "QT_QPA_PLATFORM=xcb", "WAYLAND_DISPLAY=x"}) {
        const ProgramResult run = Run({CALYVOX_PROGRAM, DataFile("a.mp3")}, display);
        EXPECT_EQ(std::to_string(run.ExitStatus) + run.Output, "0" + Row("a.mp3", kOk)) << display;
        EXPECT_EQ(run.Errors, "Summery: Summery of tag updating:\n\nUpdated files: 1\nNumber of errors: 0\n");
    }
    EXPECT_EQ(ReadSetting("Version"), "20011127") << "the first start writes the settings";
}

TEST_F(ProgramTest, TheExitStatusTells) {
    const std::string none = "No files!: No files to update or wrong file format.\nUpdating tags finished!\n";
    const std::tuple<std::string, std::string, int, std::string, std::string> kCases[] = {
        {DataFile("a.mp3"), "/A=TRUE", 0, Row("a.mp3", kOk), ""},
        {DataFile("a.txt", "b.ini"), "/A=TRUE", 1, Row("a.txt", "Error occured\t*"), "Summery: "},
        {"/I=x.ini", "/A=TRUE", 2, "", none},
        {"/P=x", "/A=TRUE", 3, "", "Calyvox: "},
        {"/P=x", "--version", 0, std::string("calyvox ") + kVersion + "\n", ""}};
    for (const auto& [first, second, status, output, errors] : kCases) {
        const ProgramResult run = Run({CALYVOX_PROGRAM, first, second});
        EXPECT_EQ(run.ExitStatus, status) << first;
        EXPECT_EQ(run.Output, output);
        EXPECT_TRUE(errors.empty() ? run.Errors.empty() : run.Errors.starts_with(errors)) << run.Errors;
    }
}

TEST_F(ProgramTest, PathsWithBlanksAccentsAndControlsAndRelativeOnesArrive) {
    DataFile("F\xC3\xBCr \xD0\x96 &\traw.mp3", "\xD0\x96 .ini");
    const auto run = Run({"/usr/bin/env", "-C", folder_.HostPath(), CALYVOX_PROGRAM, "/i=./\xD0\x96 .ini"});
    EXPECT_EQ(run.Output, Row("F\xC3\xBCr \xD0\x96 &?raw.mp3", kOk));
}

TEST_F(ProgramTest, AThousandFilesOfAllKindsAreWorkedThrough) {
    const std::string data = folder_.Host("data.ini");
    RunProgram({CALYVOX_SAMPLE_LIBRARY, "--valid", "--count", "1000", "--data", data, folder_.Host("all")});
    const ProgramResult result = Run({CALYVOX_PROGRAM, "/I=" + data, "/A=TRUE"});
    EXPECT_EQ(result.ExitStatus, 0);
    EXPECT_EQ(std::count(result.Output.begin(), result.Output.end(), '\n'), 1000);
}

TEST_F(ProgramTest, OnARealDisplayItEndsSilentlyWithoutErrors) {
    // What the display's libraries leak is not ours.
    const auto run = Run({"/usr/bin/xvfb-run", "-a", CALYVOX_PROGRAM, DataFile("a.mp3"), "/A=TRUE"},
                         "ASAN_OPTIONS=detect_leaks=0");
    if (run.ExitStatus == 127) return; // there is no xvfb-run to try it with
    EXPECT_EQ(std::to_string(run.ExitStatus) + run.Output + run.Errors, "0");
    EXPECT_NE(folder_.Read("a.mp3"), build::Audio());
}

TEST_F(ProgramTest, OnARealDisplayTheMainWindowAppearsAndSigtermEndsItWithItsSettings) {
    const std::string script = "\"$0\" \"$1\" & xdotool search --sync --onlyvisible --name '^Current view' "
                               ">/dev/null && kill -TERM $! || kill -KILL $!; wait $!";
    const auto run = Run({"/usr/bin/xvfb-run", "-a", "timeout", "30", "sh", "-c", script, CALYVOX_PROGRAM,
                          "/P=" + folder_.HostPath()},
                         "ASAN_OPTIONS=detect_leaks=0");
    if (run.ExitStatus == 127 || run.Errors.find("xdotool: not found") != std::string::npos) return;
    EXPECT_EQ(std::to_string(run.ExitStatus) + run.Output + run.Errors, "0");
    EXPECT_EQ(ReadSetting("Parameter\\StartPath"), folder_.InsidePath());
}

} // namespace
