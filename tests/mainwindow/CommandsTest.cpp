// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/Commands.h"

#include "app/Progress.h"

#include <gtest/gtest.h>

using namespace calyvox;

TEST(CommandsTest, EachShortcutIsUniqueAndEachButtonRunsSomething) {
    for (const Command& a : AllCommands())
        for (const Command& b : AllCommands())
            EXPECT_TRUE(&a == &b || a.Shortcut != b.Shortcut || a.Shortcut.empty()) << a.Name;
    std::string buttons;
    for (const ToolButton& button : AllToolButtons())
        buttons += button.Command.empty() ? '|' : FindCommand(button.Command) ? '*' : '?';
    EXPECT_EQ(buttons, "**|*|*****|**|*****|**|*");
}

TEST(CommandsTest, OnlyWhatIsOfferedRunsAndNothingUnderAPass) {
    CommandRunner runner;
    std::string log;
    runner.CheckSelection = [&] { return log += "?", log.size() > 1; };
    runner.ShowForm = [&](auto form) { log += form; };
    const auto run = [&] {
        for (const char* name : {"submnuEditV1", "submnuEditV1", "submnuSave", "none"})
            runner.Run(name);
        return std::exchange(log, "");
    };
    runner.IsFormKnown = [](auto form) { return form == "frmID3V1"; };
    runner.SetHandler("submnuSave", [&] { log += "!"; });
    EXPECT_EQ(run(), "??frmID3V1!");
    const Progress pass;
    EXPECT_EQ(run(), "");
}
