// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/MainOptions.h"

#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/modBase.h"
#include "platform/CodePage.h"

#include <limits>

namespace calyvox {

namespace {

// Sets a switch by what the setting is compared with.
void LoadFlag(const char* path, std::int32_t on, bool& flag) {
    if (const auto number = NumberSetting(path)) flag = *number == on;
}

// Takes only one of two values.
void LoadChoice(const char* path, int first, int& choice) {
    const auto number = NumberSetting(path);
    if (number && (*number == first || *number == first + 1)) choice = *number;
}

} // namespace

void MainOptions::Load() {
    LoadChoice("Settings\\ToolPos", 1, ToolPos);
    const auto view = NumberSetting("Settings\\VerShow");
    if (view && *view >= 0 && *view <= std::numeric_limits<std::uint8_t>::max())
        modBase::VerShow = static_cast<std::uint8_t>(*view);
    LoadFlag("Settings\\SubDir", 1, SubDir);
    LoadFlag("Settings\\QuickEdit", 1, QuickEdit);
    LoadFlag("Settings\\UnSync", 1, UnSync);
    modBase::WriteUnSync() = UnSync;
    if (const auto version = NumberSetting("Settings\\ID3V2Ver")) ID3V2Ver = *version == 3 ? 3 : 4;
    if (const auto single = NumberSetting("Settings\\SingleCOMMGenre")) SingleCOMMGenre = *single != 0;
    modBase::SingleCOMMGenre() = SingleCOMMGenre;
    LoadChoice("Settings\\DoubleClick", 1, DoubleClick);
    LoadFlag("Settings\\CoolLines", 1, CoolLines);
    LoadFlag("Settings\\NotSave", 1, NotSave);
}

void MainOptions::Save() const {
    WriteNumber("Settings\\DoubleClick", DoubleClick);
    WriteNumber("Settings\\CoolLines", CoolLines ? 1 : 0);
    WriteNumber("Settings\\ToolPos", ToolPos);
    WriteNumber("Settings\\NotSave", NotSave ? 1 : 0);
    WriteNumber("Settings\\SubDir", SubDir ? 1 : 0);
    WriteNumber("Settings\\QuickEdit", QuickEdit ? 1 : 0);
    WriteNumber("Settings\\UnSync", modBase::WriteUnSync() ? 1 : 0);
    WriteNumber("Settings\\SingleCOMMGenre", SingleCOMMGenre ? 1 : 0);
}

bool MainOptions::IsChecked(std::string_view item) const {
    return (item == "submnuSubDir" && SubDir) || (item == "submnuQuickEdit" && QuickEdit) ||
           (item == "submnuSingleCOMMGenre" && SingleCOMMGenre) || (item == "submnuUnSync" && UnSync) ||
           (item == "submnuNotSave" && NotSave) || (item == "submnuID3Ver(0)" && ID3V2Ver == 3) ||
           (item == "submnuID3Ver(1)" && ID3V2Ver != 3) || (item == "submnudbl(0)" && DoubleClick == 1) ||
           (item == "submnudbl(1)" && DoubleClick != 1) || (item == "submnuToolbar(0)" && ToolPos == 1) ||
           (item == "submnuToolbar(1)" && ToolPos != 1);
}

void MainOptions::submnuSingleCOMMGenre() {
    SingleCOMMGenre = !SingleCOMMGenre;
    modBase::SingleCOMMGenre() = SingleCOMMGenre;
}

// Written at once, since the version is asked for at every new tag.
void MainOptions::submnuID3Ver(int index) {
    ID3V2Ver = index == 1 ? 4 : 3;
    WriteNumber("Settings\\ID3V2Ver", ID3V2Ver);
}

void MainOptions::submnuUnSync() {
    UnSync = !UnSync;
    modBase::WriteUnSync() = UnSync;
    if (!UnSync) return;
    modBase::MsgResult = modBase::ShowMessage("Unsynchronisation in ID3V2-Tags should ONLY be used\r\n"
                                              "if your MP3 player software (or MP3 hardware player)\r\n"
                                              "does NOT support ID3V2-Tags.\r\n"
                                              "In any other case unsynchronisation should NOT be used!\r\n"
                                              "Are you sure you want to enable unsynchronisation?",
                                              MsgBox::kYesNo | MsgBox::kQuestion, "Are you sure ...");
    if (modBase::MsgResult != MsgBox::kNo) return;
    UnSync = false;
    modBase::WriteUnSync() = false;
}

} // namespace calyvox
