// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/Form.h"

#include <memory>

namespace Ui {
class frmErrors;
}

namespace calyvox {

/// Shows TheErrors() beside the other windows. OK empties and hides it; it stays loaded until the main
/// window unloads it. Its close box does nothing.
class frmErrors : public Form {
    Q_OBJECT

public:
    frmErrors();
    ~frmErrors() override;

    void Load() override;
    bool QueryUnload(UnloadReason reason) override { return reason == UnloadReason::Code; }
    bool Unload() override;
    /// Shows what the list says by now.
    void Paint();

private:
    void btnOK_Click();

    std::unique_ptr<Ui::frmErrors> ui_;
};

} // namespace calyvox
