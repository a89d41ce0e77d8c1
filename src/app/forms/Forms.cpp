// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/Forms.h"

#include "app/forms/Form.h"

namespace calyvox {

Forms& Forms::Instance() {
    static Forms forms;
    return forms;
}

void Forms::Register(const QString& name, const Factory& factory) { factories_.insert(name, factory); }

Form* Forms::Touch(const QString& name) {
    if (!IsLoaded(name) && IsRegistered(name)) {
        Form* form = factories_.value(name)();
        form->setObjectName(name);
        loaded_.insert(name, form);
        form->Load();
    }
    return loaded_.value(name, nullptr);
}

void Forms::Show(const QString& name) {
    if (Form* form = Touch(name)) form->show();
}

bool Forms::Unload(const QString& name) {
    Form* form = loaded_.value(name, nullptr);
    if (!form) return true;
    if (!form->QueryUnload()) return false;
    form->Unload();
    form->hide();
    loaded_.remove(name);
    form->deleteLater();
    if (!AnyLoaded()) lastFormGone_();
    return true;
}

} // namespace calyvox
