// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace calyvox {

/// The inside path of "Calyvox.ini", whether the file is there or not: beside the program where a writable
/// one stands already, otherwise in the folder "calyvox" of $XDG_DATA_HOME or of ~/.local/share, which is
/// made if need be. An empty program file means the running one. Nothing fails; where no folder can be made,
/// writing the file will.
std::string IniFilePath(std::string programFile = {});

} // namespace calyvox
