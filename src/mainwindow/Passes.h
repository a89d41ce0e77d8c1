// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

/// What is done to all rows, or to all selected ones, of the main window: one pass each, with progress and
/// Cancel. Failures of single files are told in boxes; nothing is thrown.
namespace calyvox {

class MainWindow;

namespace Passes {

/// Writes every changed file. One that fails keeps its mark.
void Save(MainWindow& window);
/// Takes the tag from the selected files' objects, after a question; the files change at the next save.
void RemoveID3V1(MainWindow& window);
void RemoveID3V2(MainWindow& window);
/// Deletes the selected files from the disk at once, after a question. Files are found by their name, not by
/// their row: of two of one name in different folders the first of the collection goes.
void MenuDelete(MainWindow& window);

} // namespace Passes
} // namespace calyvox
