// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

namespace calyvox {

class MainWindow;

/// Lists of the selected rows, in a folder that the user is asked for. A list is written whole or not at all:
/// after a failure, which a box tells, the file has what it had before.

/// A playlist: the full path of each file as the host names it, in a line that ends in CR LF.
void CreateM3U(MainWindow& window);
/// "Calyvox-List.htm", the list as a table with its columns as they are shown. Texts are code page bytes,
/// nothing is escaped.
void CreateHTML(MainWindow& window);

} // namespace calyvox
