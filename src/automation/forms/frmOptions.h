// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/Form.h"

#include <memory>

namespace Ui {
class frmOptions;
}

namespace calyvox {

/// Which program plays the files. Where it stood is not kept.
class frmOptions : public Form {
    Q_OBJECT

public:
    frmOptions();
    ~frmOptions() override;

    void Load() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LoadVerbs();
    void chkDefaultPlayer_Click();
    void btnPlayerPfad_Click();
    void btnOK_Click();

    std::unique_ptr<Ui::frmOptions> ui_;
};

} // namespace calyvox
