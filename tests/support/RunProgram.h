// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace calyvox {

struct ProgramResult {
    int ExitStatus = -1; // 128 plus the signal where one ended it; 142 where it took too long
    std::string Output;
    std::string Errors;
};

/// Runs a program to its end, at most a minute. Each setting is "NAME=value", or "NAME" to unset it.
ProgramResult RunProgram(const std::vector<std::string>& arguments,
                         const std::vector<std::string>& settings = {});

} // namespace calyvox
