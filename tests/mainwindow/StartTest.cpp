// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/SettingsCatalogue.h"
#include "app/modBase.h"
#include "mainwindow/MainOptions.h"
#include "mainwindow/StartFolder.h"
#include "platform/FileSystem.h"

#include <gtest/gtest.h>

using namespace calyvox;

TEST(StartTest, TheDeepestFolderBelowTheRootIsShown) {
    const std::string here = FileSystem::CurrentFolder();
    const std::string rows[][3] = {
        {"\\tmp\\gone\\x", "", "\\tmp"}, {"\\gone\\x", "", here}, {"\\", "", ""}, {"", "/P=\\", ""},
        {"\\", "/P=\\tmp\\\\", "\\tmp"}, {"x", "", here}};
    for (const auto& [stored, command, shown] : rows) {
        WriteSetting("Parameter\\StartPath", stored, RegistryStore::kText);
        modBase::CommandLine.Resolve(command);
        EXPECT_EQ(FindStartFolder(), shown) << stored << command;
        modBase::CommandLine = {};
    }
}

TEST(StartTest, ADamagedSettingLeavesWhatStands) {
    const std::pair<std::string, int> rows[] = {{"1", 11141}, {"2", 20042}, {"x", 91031}, {"256", 90041}};
    for (const auto& [value, shown] : rows) {
        for (const char* name : {"VerShow", "QuickEdit", "UnSync", "ID3V2Ver", "ToolPos"})
            WriteSetting(std::string("Settings\\") + name, value, RegistryStore::kText);
        MainOptions options{.QuickEdit = (modBase::VerShow = 9) == 9};
        options.Load();
        const int switches = modBase::VerShow * 100 + options.QuickEdit * 10 + modBase::WriteUnSync();
        EXPECT_EQ(switches * 100 + options.ID3V2Ver * 10 + options.ToolPos, shown);
    }
}
