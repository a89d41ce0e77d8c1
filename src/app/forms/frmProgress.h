// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/Services.h"
#include "app/forms/Form.h"

#include <memory>

namespace Ui {
class frmProgress;
}

namespace calyvox {

/// The window of a running pass. Its close box and Esc do nothing.
class frmProgress : public Form {
    Q_OBJECT

public:
    frmProgress();
    ~frmProgress() override;

    bool QueryUnload(UnloadReason reason) override { return reason == UnloadReason::Code; }
    void Paint(const ProgressState& state);

private:
    std::unique_ptr<Ui::frmProgress> ui_;
};

} // namespace calyvox
