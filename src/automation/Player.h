// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace calyvox {

class MainWindow;

/// The player and its arguments. The parameters are cut into arguments first; then each "%P" in them becomes
/// the file's host path, so that no name, whatever it holds, is taken for more than a part of one argument.
std::vector<std::string> PlayerCommand(const std::string& player, const std::string& parameters,
                                       const std::string& hostFile);

/// Plays each selected file, with the program that the desktop has for it or with the player of the settings.
/// The first that cannot be started ends it with a box.
void MenuPlay(MainWindow& window);

} // namespace calyvox
