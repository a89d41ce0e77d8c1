// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace calyvox {

/// Codes of a message box: one of the button sets plus one icon, and the button that was pressed.
namespace MsgBox {
inline constexpr int kOkOnly = 0;
inline constexpr int kOkCancel = 1;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kButtonMask = 7;
inline constexpr int kCritical = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;
inline constexpr int kIconMask = 112;

inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;
inline constexpr int kYes = 6;
inline constexpr int kNo = 7;
} // namespace MsgBox

/// What the floors without windows ask of them. The windows put the real ones in at start-up, tests their
/// own; the defaults answer and do nothing.
struct Services {
    /// Lines of the text are parted by CR or CR LF. The result is the button's code.
    std::function<int(const std::string& text, int buttons, const std::string& title)> MessageBox =
        [](const std::string&, int, const std::string&) { return MsgBox::kOk; };
    /// Lets pending window events run; called once per file or row of a pass.
    std::function<void()> Yield = [] {};
};

/// The one set of the process.
Services& TheServices();

} // namespace calyvox
