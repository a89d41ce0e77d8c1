// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The pages for users.
namespace calyvox::modHelp {

/// The first page: in "help" beside the program, otherwise where an installation has it.
std::string HelpFile(const std::string& programFolder);
/// Opens a page with the program that the desktop has for it; a failure is ignored.
void ShowHelp(const std::string& helpFile);

} // namespace calyvox::modHelp
