// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/Form.h"

#include <memory>
#include <string>

namespace Ui {
class frmCOMMEdit;
}

namespace calyvox {

/// Enters one comment into the list of TheCommentRequest().
class frmCOMMEdit : public Form {
    Q_OBJECT

public:
    frmCOMMEdit();
    ~frmCOMMEdit() override;

    void Load() override;
    bool Unload() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void btnOK_Click();
    void btnCancel_Click();
    std::string CommentText() const;

    std::unique_ptr<Ui::frmCOMMEdit> ui_;
    bool oWentDownWithCtrl_ = false;
};

} // namespace calyvox
