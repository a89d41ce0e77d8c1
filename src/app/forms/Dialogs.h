// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>

/// Text between bytes and controls, and the boxes of the program.
namespace calyvox::Dialogs {

/// Code page bytes as a control shows them; exact both ways for all 256.
QString TagText(const std::string& bytes);
/// The same for names and paths (see HostPath): escapes show what they stand for.
QString NameText(const std::string& path);

/// Puts the real services in. Without a display, boxes go to standard error and answer their default.
void InstallServices(bool display);

} // namespace calyvox::Dialogs
