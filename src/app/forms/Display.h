// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

namespace calyvox::Display {

/// Whether there is a screen that somebody can see. Tried before the application object is made, which
/// would end the process over a display that does not answer. A platform without windows that was asked for
/// by QT_QPA_PLATFORM counts as none.
bool IsUsable();

} // namespace calyvox::Display
