// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/modHelp.h"

#include "app/Version.h"
#include "platform/FileSystem.h"
#include "platform/HostPath.h"
#include "platform/Shell.h"

namespace calyvox::modHelp {

std::string HelpFile(const std::string& programFolder) {
    std::string beside = programFolder + "\\help\\index.html";
    if (FileSystem::FileExists(beside)) return beside;
    return programFolder + '\\' + HostPath::FromHost(kHelpFolder) + "\\index.html";
}

void ShowHelp(const std::string& helpFile) { Shell::OpenWithDesktop(HostPath::ToHost(helpFile)); }

} // namespace calyvox::modHelp
