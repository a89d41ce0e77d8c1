// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

namespace calyvox {

class MainWindow;

/// Asks about unsaved changes, hands the scanner of the outside music database a list of the selected files
/// under their names on the disk, in the host's form, one a line, and waits for its end. A scanner that
/// cannot be started is passed over.
void submnuAddDB(MainWindow& window);

} // namespace calyvox
