// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/StartFolder.h"

#include "app/SettingsCatalogue.h"
#include "app/modBase.h"
#include "app/modReport.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"

namespace calyvox {

namespace {

std::string WithoutBackslash(std::string path) {
    while (path.ends_with('\\'))
        path.pop_back();
    return path;
}

std::string WantedFolder() {
    if (modBase::CommandLine.Path().empty()) {
        std::string path = ReadSetting("Parameter\\StartPath");
        ReportLine("frmmain.load - RegPath: " + path);
        return path;
    }
    ReportLine("frmmain.load - CMDPath: " + modBase::CommandLine.Path());
    return modBase::CommandLine.Path();
}

} // namespace

std::string FindStartFolder() {
    std::string path = WantedFolder();
    if (!path.empty()) path[0] = CodePage::Upper(path[0]);
    const bool root = path.starts_with('\\') && WithoutBackslash(path).empty();
    path = WithoutBackslash(path);
    ReportLine("frmmain.load - ActivPath: " + path);
    if (root) return path;
    while (!FileSystem::FolderExists(path) && path.find('\\') != std::string::npos)
        path.erase(path.rfind('\\'));
    if (path.empty() || !FileSystem::FolderExists(path)) path = WithoutBackslash(FileSystem::CurrentFolder());
    return path;
}

} // namespace calyvox
