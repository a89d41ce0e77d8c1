// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/Forms.h"

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

void Forms::ShowBeside(const QString& name, const QString& owner) {
    Form* form = Touch(name);
    if (!form) return;
    owners_.insert(name, owner);
    form->show();
    form->raise();
    form->activateWindow();
}

void Forms::ShowModal(const QString& name, const QString& owner) {
    Form* form = Touch(name);
    if (!form) return;
    owners_.insert(name, owner);
    ShowAbove(*form, owner);
}

void Forms::ShowBlocking(const QString& name, const QString& fallbackOwner) {
    if (Form* form = Touch(name)) ShowAbove(*form, modal_.isEmpty() ? fallbackOwner : modal_.last());
}

// Modality of a visible window changes only when it is shown anew.
void Forms::ShowAbove(Form& form, const QString& owner) {
    form.hide();
    SetFormOwner(form, owner);
    form.setWindowModality(Qt::ApplicationModal);
    modal_.removeAll(form.objectName());
    modal_.append(form.objectName());
    form.show();
    form.raise();
    form.activateWindow();
}

void Forms::SetFormOwner(Form& child, const QString& owner) const {
    Form* const above = loaded_.value(owner, nullptr);
    if (!above || child.parentWidget() == above) return;
    const bool placed = child.testAttribute(Qt::WA_Moved);
    const QRect place = child.geometry();
    child.setParent(above, (child.windowFlags() & ~Qt::WindowType_Mask) | Qt::Dialog);
    if (placed)
        child.setGeometry(place);
    else if (above->isVisible())
        child.setGeometry(QRect(above->geometry().center() - child.rect().center(), child.size()));
}

void Forms::HideAndReturn(const QString& name, const QString& owner) {
    if (Form* form = loaded_.value(name, nullptr)) form->hide();
    Activate(owner);
}

void Forms::Activate(const QString& name) {
    Form* form = loaded_.value(name, nullptr);
    if (!form || unloading_.contains(name)) return;
    form->activateWindow();
    form->Activated();
}

bool Forms::UnloadModal() {
    while (!modal_.isEmpty())
        if (!Unload(QString(modal_.last()), Form::UnloadReason::CloseBox)) return false;
    return true;
}

bool Forms::Unload(const QString& name, Form::UnloadReason reason) {
    Form* form = loaded_.value(name, nullptr);
    if (!form) return true;
    if (unloading_.contains(name)) return false;
    unloading_.append(name);
    const bool goes = form->QueryUnload(reason) && form->Unload();
    unloading_.removeAll(name);
    if (!goes) return false;
    form->hide();
    loaded_.remove(name);
    modal_.removeAll(name);
    for (Form* other : std::as_const(loaded_))
        if (other->parentWidget() == form) other->setParent(nullptr, other->windowFlags());
    form->deleteLater();
    if (owners_.contains(name)) Activate(owners_.take(name));
    if (!AnyLoaded()) lastFormGone_();
    return true;
}

} // namespace calyvox
