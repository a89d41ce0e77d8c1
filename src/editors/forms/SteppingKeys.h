// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

class QKeyEvent;

namespace calyvox {

class MainWindow;

/// How the editors of one file step through the rows of the main list: Ctrl+B to the row above, Ctrl+N to the
/// one below. Both keys are to reach it before any control.
class SteppingKeys {
public:
    enum class Step { None, Back, Next };

    void KeyDown(const QKeyEvent& key);
    /// A key that is held down counts once, when it is let go; Ctrl may have been let go before it.
    Step KeyUp(const QKeyEvent& key) const;

    /// The row that a step leads to; RowList::kNone at the ends of the list.
    static std::size_t Target(const MainWindow& window, Step step);
    /// The row becomes the current one and is selected in place of the one that is left.
    static void GoTo(MainWindow& window, std::size_t row);

private:
    int keyWithCtrl_ = 0; // went down with Ctrl
};

} // namespace calyvox
