// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace calyvox {

/// The main window's switches, one for each check mark of the menus, and the two that only the settings know.
/// The tag engine's own switches stand in modBase.
struct MainOptions {
    bool SubDir = false;
    bool QuickEdit = false;
    bool SingleCOMMGenre = false;
    bool UnSync = false;
    bool NotSave = false;
    int ID3V2Ver = 3;    // 3 or 4
    int DoubleClick = 1; // opens the editor of this tag version
    int ToolPos = 1;     // 1 top, 2 bottom
    bool CoolLines = true;

    /// From the settings; one that is missing or of a wrong kind leaves what stands. VerShow, WriteUnSync
    /// and SingleCOMMGenre of modBase come along.
    void Load();
    /// To the settings, all but ID3V2Ver, which is written when it changes. Raises the failures of
    /// clsRegistry.
    void Save() const;

    /// Whether a menu item bears a check mark.
    bool IsChecked(std::string_view item) const;

    // What the menu items do, by their names; the box of the last asks before it is switched on.
    void submnuQuickEdit() { QuickEdit = !QuickEdit; }
    void submnuNotSave() { NotSave = !NotSave; }
    void submnuSingleCOMMGenre();
    void submnuID3Ver(int index);
    void submnuUnSync();
};

} // namespace calyvox
