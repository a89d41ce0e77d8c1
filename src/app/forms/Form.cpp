// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/Form.h"

#include "app/forms/Forms.h"

#include <QCloseEvent>

namespace calyvox {

void Form::closeEvent(QCloseEvent* event) {
    event->ignore();
    Forms::Instance().Unload(objectName(), UnloadReason::CloseBox);
}

} // namespace calyvox
