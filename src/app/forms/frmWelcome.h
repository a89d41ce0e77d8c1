// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/Form.h"

#include <memory>

namespace Ui {
class frmWelcome;
}

namespace calyvox {

/// What is to be seen while the program starts.
class frmWelcome : public Form {
    Q_OBJECT

public:
    frmWelcome();
    ~frmWelcome() override;

    void Load() override;
    void SetVersionText(const QString& text);
    void SetStatusText(const QString& text);

    /// "Version: " and the version.
    static QString VersionText();

private:
    std::unique_ptr<Ui::frmWelcome> ui_;
};

} // namespace calyvox
