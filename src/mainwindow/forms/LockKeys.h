// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

struct xcb_connection_t; // NOLINT(readability-identifier-naming): the library's own name

namespace calyvox {

/// The locks of the keyboard, as far as the window system tells them. X11 knows Num Lock and Caps Lock;
/// nobody knows Insert.
class LockKeys {
public:
    struct State {
        bool Num = false;
        bool Caps = false;
    };

    /// Connects to the display that the windows are on, if it is an X11 one.
    LockKeys();
    ~LockKeys();
    LockKeys(const LockKeys&) = delete;
    LockKeys& operator=(const LockKeys&) = delete;

    std::optional<State> Read() const;

private:
    unsigned FindNumMask() const;

    xcb_connection_t* connection_ = nullptr;
    unsigned root_ = 0;
    unsigned numMask_ = 0; // the modifier that Num Lock is bound to
};

} // namespace calyvox
