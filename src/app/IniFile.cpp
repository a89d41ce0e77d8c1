// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/IniFile.h"

#include "platform/Failure.h"
#include "platform/FileSystem.h"
#include "platform/HostPath.h"

#include <cstdlib>

namespace calyvox {

namespace {

constexpr const char* kName = "Calyvox.ini";

bool IsWritable(const std::string& file) {
    bool writable = false;
    Skip([&] { writable = FileSystem::FileExists(file) && !FileSystem::IsReadOnly(file); });
    return writable;
}

// Empty for a user without a home.
std::string DataFolder() {
    const auto absolute = [](const char* variable) {
        const char* path = std::getenv(variable);
        return path && path[0] == '/' ? std::string(path) : std::string();
    };
    const std::string data = absolute("XDG_DATA_HOME");
    if (!data.empty()) return HostPath::FromHost(data) + "\\calyvox";
    const std::string home = absolute("HOME");
    return home.empty() ? home : HostPath::FromHost(home) + "\\.local\\share\\calyvox";
}

} // namespace

std::string IniFilePath(std::string programFile) {
    if (programFile.empty()) Skip([&] { programFile = FileSystem::ProgramFile(); });
    std::string beside = programFile.substr(0, programFile.rfind('\\') + 1) + kName;
    const std::string folder = DataFolder();
    if (folder.empty() || IsWritable(beside)) return beside;
    return folder + "\\" + kName;
}

void MakeIniFolder(const std::string& iniFile) {
    const std::string path = iniFile.substr(0, iniFile.rfind('\\'));
    for (std::size_t end = 0; end != std::string::npos;) {
        end = path.find('\\', end + 1);
        const std::string folder = path.substr(0, end);
        if (!FileSystem::FolderExists(folder)) Skip([&] { FileSystem::CreateFolder(folder); });
    }
}

} // namespace calyvox
