// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace calyvox {

/// The folder to show at the start, without a backslash at its end (the empty path is the host's root): that
/// of the command line, otherwise the stored one; where it does not exist, its deepest existing ancestor
/// below the root, otherwise the current folder. Failures of the store and of the host are thrown.
std::string FindStartFolder();

} // namespace calyvox
