// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/Commands.h"

#include "app/Progress.h"

#include <algorithm>
#include <array>

namespace calyvox {

namespace {

constexpr auto kToggle = CommandKind::Toggle;
constexpr auto kRadio = CommandKind::Radio;

// clang-format off
constexpr auto kCommands = std::to_array<Command>({
    {"submnuRefresh", "mnuFile", "Refresh List", "F5", false, "", "refresh"},
    {"submnuSave", "mnuFile", "Save to File", "Ctrl+S", false, "", "save"},
    {"submnuSelAll", "mnuFile", "Select All", "Ctrl+A", false, "", "selall", {}, true},
    {"submnuInvert", "mnuFile", "Invert Selection", "Ctrl+I", false, "", "invert"},
    {"submnuGroup", "mnuFile", "Group Selection (at the top)", "Ctrl+U", false, "", "group"},
    {"submnuPlay", "mnuFile", "Play MP3-File", "Ctrl+P", true, "", "play", {}, true},
    {"submnuMoveCopy", "mnuFile", "Organize  File(s)", "Ctrl+Y", true, "", "movecopy"},
    {"submnuDelete", "mnuFile", "Delete File(s)", "Del", true, "", "delete"},
    {"submnuQuit", "mnuFile", "Quit", "", false, "", "quit", {}, true},

    {"submnuEditV1", "mnuFunctions", "Edit TAG Ver.1", "Ctrl+E", true, "frmID3V1", "edit1"},
    {"submnuMultiTAGV1", "mnuFunctions", "Multiple Edit TAG Ver.1", "Ctrl+M", true, "frmID3V1Multi", "multiedit1"},
    {"submnuUNTAGV1", "mnuFunctions", "Remove TAG Ver.1", "F11", true, "", "untag1"},
    {"submnuTAG1File", "mnuFunctions", "TAG Ver.1 -> Filename", "Ctrl+T", true, "frmTAG1ToFName", "tagfile1"},
    {"submnuFileTAG1", "mnuFunctions", "Filename -> TAG Ver.1", "Ctrl+F", true, "frmFNameToTAG1", "filetag1"},
    {"submnuEditV2", "mnuFunctions", "Edit TAG Ver.2", "Ctrl+W", true, "frmID3V2", "edit2", {}, true},
    {"submnuMultiTAGV2", "mnuFunctions", "Multiple Edit TAG Ver.2", "Ctrl+N", true, "frmID3V2Multi", "multiedit2"},
    {"submnuUNTAGV2", "mnuFunctions", "Remove TAG Ver.2", "F12", true, "", "untag2"},
    {"submnuTAG2File", "mnuFunctions", "TAG Ver.2 -> Filename", "Ctrl+R", true, "frmTAG2ToFName", "tagfile2"},
    {"submnuFileTAG2", "mnuFunctions", "Filename -> TAG Ver.2", "Ctrl+D", true, "frmFNameToTAG2", "filetag2"},

    {"submnuSearch", "mnuTools", "Search", "F3", false, "", "search"},
    {"submnuID3V2Genre", "mnuTools", "Enter ID3V2-Genres", "Ctrl+G", false, "frmID3V2Genre", "genre"},
    {"submnuCaseConv", "mnuTools", "Case Conversion", "Ctrl+F2", true, "frmCaseConv", "caseconvert"},
    {"submnuTransfer", "mnuTools", "Transfer/Convert ID3-Tags", "F4", true, "frmTransfer", "transfer"},
    {"submnuCheckMP3", "mnuTools", "Check MP3", "F6", false, "", "", {}, false, false},
    {"submnuCreateM3U", "submnuLists", "M3U-Playlist", "Ctrl+L", false, "", "m3u"},
    {"submnuCreateHTML", "submnuLists", "HTML-Filelist", "Ctrl+H", false, "", "html"},

    {"submnuAddDB", "mnuMS", "Add to database", "F7", true, "", "database"},

    {"submnuSubDir", "mnuOptions", "Scan Subdirectories", "F9", false, "", "", kToggle},
    {"submnuQuickEdit", "mnuOptions", "Quick filename editing", "Ctrl+Q", false, "", "", kToggle},
    {"submnuID3Ver(0)", "submnuV2Options", "Use ID3 Ver. 2.3 for new Tags", "", false, "", "", kRadio},
    {"submnuID3Ver(1)", "submnuV2Options", "Use ID3 Ver. 2.4 for new Tags", "", false, "", "", kRadio},
    {"submnuSingleCOMMGenre", "submnuV2Options", "Use one Genre/Comment only", "Shift+F1", false, "", "", kToggle, true},
    {"submnuUnSync", "submnuV2Options", "Write unsync. ID3V2-Tags", "", false, "", "", kToggle},
    {"submnudbl(0)", "submnuDblclickOpt", "Open 'Edit TAG Ver.1'", "", false, "", "", kRadio},
    {"submnudbl(1)", "submnuDblclickOpt", "Open 'Edit TAG Ver.2'", "", false, "", "", kRadio},
    {"submnuToolbar(0)", "submnuToolPos", "Top", "", false, "", "", kRadio},
    {"submnuToolbar(1)", "submnuToolPos", "Buttom", "", false, "", "", kRadio},
    {"submnuNotSave", "mnuOptions", "Do NOT remember current folder on exit", "", false, "", "", kToggle},
    {"submnuOptions", "mnuOptions", "MP3-Player Options ...", "Ctrl+O", false, "frmOptions", "options", {}, true},

    {"submnuContent", "mnuHelp", "Content ...", "F1", false, "", "help"},
    {"submnuAbout", "mnuHelp", "About ...", "", false, "", "about"},

    {"CLSDFOLD", "", "Folders ", "", false, "", "clsdfold"},
    {"View", "", "Current view: ID3V2", "", false, "", "view"},
});

constexpr auto kMenus = std::to_array<CommandMenu>({
    {"mnuFile", "", "File", 0},
    {"mnuFunctions", "", "Functions", 1},
    {"mnuTools", "", "Tools", 0},
    {"submnuLists", "mnuTools", "Create lists (of selected files)"},
    {"mnuMS", "", "", 0},
    {"mnuOptions", "", "Options", 0},
    {"submnuV2Options", "mnuOptions", "ID3V2 Options"},
    {"submnuDblclickOpt", "mnuOptions", "Double Click on a File"},
    {"submnuToolPos", "mnuOptions", "Toolbar Position"},
    {"mnuHelp", "", "Help", 0},
});

constexpr ToolButton kSeparator = {};

constexpr auto kToolButtons = std::to_array<ToolButton>({
    {"Play", "submnuPlay", "", "Play selected MP3"},
    {"MoveCopy", "submnuMoveCopy", "", "Move / Copy selected files"},
    kSeparator,
    {"Save", "submnuSave", "", "Save"},
    kSeparator,
    {"Edit1", "submnuEditV1", "", "Edit ID3V1"},
    {"MultiEdit1", "submnuMultiTAGV1", "", "Multiple edit ID3V1"},
    {"Untag1", "submnuUNTAGV1", "", "Remove ID3V1"},
    {"TagFile1", "submnuTAG1File", "", "ID3V1 to filename"},
    {"FileTag1", "submnuFileTAG1", "", "Filename to ID3V1"},
    kSeparator,
    {"Refresh", "submnuRefresh", "Refresh  ", "Refresh filelist"},
    {"CLSDFOLD", "CLSDFOLD", "Folders ", "Show/Hide Folders"},
    kSeparator,
    {"Edit2", "submnuEditV2", "", "Edit ID3V2"},
    {"MultiEdit2", "submnuMultiTAGV2", "", "Multiple edit ID3V2"},
    {"Untag2", "submnuUNTAGV2", "", "Remove ID3V2"},
    {"TagFile2", "submnuTAG2File", "", "ID3V2 to filename"},
    {"FileTag2", "submnuFileTAG2", "", "Filename to ID3V2"},
    kSeparator,
    {"CaseConvert", "submnuCaseConv", "", "Case conversion"},
    {"", "submnuTransfer", "", "Transfer tags"},
    kSeparator,
    {"View", "View", "Current view: ID3V2", "Change view mode"},
});
// clang-format on

} // namespace

std::span<const Command> AllCommands() { return kCommands; }

std::span<const CommandMenu> AllMenus() { return kMenus; }

std::span<const ToolButton> AllToolButtons() { return kToolButtons; }

const Command* FindCommand(std::string_view name) {
    const auto* const at = std::find_if(kCommands.begin(), kCommands.end(),
                                        [&](const Command& one) { return one.Name == name; });
    return at == kCommands.end() ? nullptr : at;
}

void CommandRunner::SetHandler(std::string_view name, std::function<void()> handler) {
    if (handler)
        handlers_.insert_or_assign(std::string(name), std::move(handler));
    else
        handlers_.erase(std::string(name));
}

bool CommandRunner::IsOffered(const Command& command) const {
    return handlers_.contains(command.Name) || (!command.Form.empty() && IsFormKnown(command.Form));
}

void CommandRunner::Run(std::string_view name) const {
    const Command* const command = FindCommand(name);
    if (!command || !IsOffered(*command) || Progress::Running()) return;
    Prepare();
    if (command->NeedsSelection && !CheckSelection()) return;
    const auto handler = handlers_.find(name);
    if (handler != handlers_.end())
        handler->second();
    else
        ShowForm(command->Form);
}

} // namespace calyvox
