// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

namespace calyvox {

class CommandRunner;

/// Gives the commands that lead out of the program (player, lists, database, help) their handlers, which work
/// on TheMainWindow().
void RegisterOutsideCommands(CommandRunner& commands);

} // namespace calyvox
