// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
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

/// What the progress window shows: one bar for the whole pass, one for the copy of one file (in bytes).
struct ProgressState {
    std::string Caption = "Process running ...";
    std::int64_t Max = 100;
    std::int64_t Value = 0;
    std::int64_t WriteMax = 100;
    std::int64_t WriteValue = 0;
    bool CanCancel = true;
};

/// The texts of the window that asks for a folder, and the one it begins with.
struct FolderRequest {
    std::string Title;
    std::string Caption;
    std::string StatusText;
    std::string StartPath; // an inside path, with or without a backslash at its end
};

/// What the floors without windows ask of them. The windows put the real ones in at start-up, tests their
/// own; the defaults answer and do nothing.
struct Services {
    /// Lines of the text are parted by CR or CR LF. The result is the button's code.
    std::function<int(const std::string& text, int buttons, const std::string& title)> MessageBox =
        [](const std::string&, int, const std::string&) { return MsgBox::kOk; };
    /// Lets pending window events run; called once per file or row of a pass.
    std::function<void()> Yield = [] {};
    /// Paints what is due while the program waits for another one; what is typed and clicked meanwhile is
    /// lost.
    std::function<void()> KeepPainting = [] {};

    /// Asks for a line of text, empty on Cancel. What the code page lacks comes as an escape (see HostPath).
    std::function<std::string(const std::string& prompt, const std::string& title)> InputBox =
        [](const std::string&, const std::string&) { return std::string(); };
    /// Asks for a folder: its inside path, a backslash for the root, empty on Cancel.
    std::function<std::string(const FolderRequest& request)> BrowseForFolder = [](const FolderRequest&) {
        return std::string();
    };

    /// The progress window; Progress alone calls these.
    std::function<void()> LoadProgress = [] {};
    std::function<void(const ProgressState& state)> PaintProgress = [](const ProgressState&) {};
    std::function<void()> UnloadProgress = [] {};

    /// Shows the window of TheErrors() beside the others; brings what it shows up to date.
    std::function<void()> ShowErrors = [] {};
    std::function<void()> PaintErrors = [] {};

    /// The line of the welcome window, and its end.
    std::function<void(const std::string& text)> WelcomeStatus = [](const std::string&) {};
    std::function<void()> UnloadWelcome = [] {};
};

/// The one set of the process.
Services& TheServices();

} // namespace calyvox
