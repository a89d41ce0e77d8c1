// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

/// Starting other programs. Arguments are host text, handed over as they are, without a shell between.
namespace calyvox::Shell {

/// Starts a program that goes on by itself; the name is looked up in PATH. False if it cannot be started.
bool Start(const std::vector<std::string>& arguments);

/// Starts a program and waits for its end without limit. A start that fails returns at once, false. If
/// there is a meanwhile, it is called every now and then during the wait, and once behind it.
bool StartAndWait(const std::vector<std::string>& arguments, const std::function<void()>& meanwhile = {});

/// Opens a file or an address with the program that the desktop has for it. False if there is none to ask.
bool OpenWithDesktop(const std::string& hostTarget);

/// A command line cut into arguments: blanks part them, double quotes hold them together and are dropped.
std::vector<std::string> SplitCommandLine(const std::string& commandLine);

} // namespace calyvox::Shell
