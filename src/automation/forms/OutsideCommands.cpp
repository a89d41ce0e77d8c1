// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "automation/forms/OutsideCommands.h"

#include "app/modHelp.h"
#include "automation/DatabaseLink.h"
#include "automation/Lists.h"
#include "automation/Player.h"
#include "mainwindow/MainWindow.h"
#include "platform/FileSystem.h"

namespace calyvox {

void RegisterOutsideCommands(CommandRunner& commands) {
    commands.SetHandler("submnuPlay", [] { MenuPlay(TheMainWindow()); });
    commands.SetHandler("submnuCreateM3U", [] { CreateM3U(TheMainWindow()); });
    commands.SetHandler("submnuCreateHTML", [] { CreateHTML(TheMainWindow()); });
    commands.SetHandler("submnuAddDB", [] { submnuAddDB(TheMainWindow()); });
    commands.SetHandler("submnuContent", [] {
        const std::string program = FileSystem::ProgramFile();
        modHelp::ShowHelp(modHelp::HelpFile(program.substr(0, program.rfind('\\'))));
    });
}

} // namespace calyvox
