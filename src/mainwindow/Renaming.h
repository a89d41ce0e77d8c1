// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// Renaming in place: a file's row, which only notes the new name until the next save, and a folder of the
/// tree, which is renamed at once. Boxes tell what cannot be. Names have no extension and no folder.
namespace calyvox {

class MainWindow;
class MP3;

namespace Renaming {

/// The name that a file has on the disk: a rename that is not done yet leaves it under its old one.
const std::string& NameOnDisk(const MP3& file);

/// A row's text was edited to the name given. Characters that a name cannot hold become "_"; a name that a
/// listed file in the same folder has is refused, and the row keeps its text, as it does where the name is
/// empty. True if quick editing goes on with the next row.
bool AfterLabelEdit(MainWindow& window, std::size_t row, std::string name);

/// A folder was edited to the name given; the paths of listed files below it follow. False where it keeps
/// its name.
bool AfterFolderRename(MainWindow& window, const std::string& folder, const std::string& name);

} // namespace Renaming
} // namespace calyvox
