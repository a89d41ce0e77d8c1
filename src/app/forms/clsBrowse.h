// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/Services.h"

#include <QDialog>

namespace calyvox {

class FolderView;

/// Asks for a folder with the same tree as the main window, so that every name can be chosen. Remembers
/// nothing.
class clsBrowse : public QDialog {
    Q_OBJECT

public:
    explicit clsBrowse(const FolderRequest& request, QWidget* parent = nullptr);

    /// The chosen folder's inside path, a backslash for the root.
    std::string Path() const;

private:
    FolderView* tree_;
};

} // namespace calyvox
