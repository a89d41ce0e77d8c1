// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/Form.h"
#include "editors/ID3V1Fields.h"
#include "editors/forms/SteppingKeys.h"

#include <memory>

class QLineEdit;

namespace Ui {
class frmID3V1;
}

namespace calyvox {

class MainWindow;

/// Edits the ID3V1 tag of the list's current row and steps through the rows above and below.
class frmID3V1 : public Form {
    Q_OBJECT

public:
    frmID3V1();
    ~frmID3V1() override;

    void Load() override;
    bool Unload() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void btnOK_Click();
    void btnCancel_Click();
    void LoadTag();
    void ClearControls();
    void SaveTag();
    void StepBy(SteppingKeys::Step step);
    bool KeyDown(QObject* control, int key);

    std::unique_ptr<Ui::frmID3V1> ui_;
    MainWindow& window_;
    SteppingKeys steppingKeys_;
    ID3V1Fields loaded_; // what a control that nobody changed stands for
};

} // namespace calyvox
