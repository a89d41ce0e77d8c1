// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

namespace calyvox {

/// Puts the real services in: boxes, progress, errors, the welcome line. Without a display, boxes go to
/// standard error and answer their default.
void InstallServices(bool display);

} // namespace calyvox
