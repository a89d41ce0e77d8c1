// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "automation/Player.h"

#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/modBase.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/Renaming.h"
#include "platform/CodePage.h"
#include "platform/HostPath.h"
#include "platform/Shell.h"

#include <functional>

namespace calyvox {

namespace {

constexpr std::string_view kFileMark = "%P";

void ForEachSelected(const MainWindow& window, const std::function<bool(const std::string&)>& play) {
    for (std::size_t row = 0; row < window.FileList.Count(); ++row)
        if (window.FileList.IsSelected(row) &&
            !play(HostPath::ToHost(Renaming::NameOnDisk(window.FileOf(row)))))
            return;
}

bool TellIfNot(bool started, const std::string& player) {
    if (!started)
        modBase::MsgResult = modBase::ShowMessage("The MP3 player could not be started:\r" + player,
                                                  MsgBox::kExclamation, "Error");
    return started;
}

} // namespace

std::vector<std::string> PlayerCommand(const std::string& player, const std::string& parameters,
                                       const std::string& hostFile) {
    std::vector<std::string> command = Shell::SplitCommandLine(HostPath::Shown(parameters));
    for (std::string& argument : command)
        for (std::size_t at = argument.find(kFileMark); at != std::string::npos;
             at = argument.find(kFileMark, at + hostFile.size()))
            argument.replace(at, kFileMark.size(), hostFile);
    command.insert(command.begin(), HostPath::ToHost(player));
    return command;
}

// The desktop knows one way to open a file, whatever verb is set.
void MenuPlay(MainWindow& window) {
    if (CodePage::LeadingNumber(ReadSetting("Parameter\\DefaultPlayer")) == 1) {
        ForEachSelected(window, [](const std::string& file) {
            return TellIfNot(Shell::OpenWithDesktop(file), "xdg-open");
        });
        return;
    }
    const std::string player = ReadSetting("Parameter\\PlayerPath");
    const std::string parameters = ReadSetting("Parameter\\PlayerParameter");
    ForEachSelected(window, [&](const std::string& file) {
        return TellIfNot(Shell::Start(PlayerCommand(player, parameters, file)), player);
    });
}

} // namespace calyvox
