// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace calyvox {

/// The inside path of "Calyvox.ini", whether the file is there or not: beside the program where a writable
/// one stands already, otherwise in the folder "calyvox" of $XDG_DATA_HOME or of ~/.local/share. An empty
/// program file means the running one. Nothing fails.
std::string IniFilePath(std::string programFile = {});

/// Makes the folders that the file is to be written in. Where that cannot be, writing the file will fail.
void MakeIniFolder(const std::string& iniFile);

} // namespace calyvox
