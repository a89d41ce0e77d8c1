// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/frmErrors.h"

#include "app/ErrorList.h"
#include "app/forms/Dialogs.h"
#include "app/forms/Forms.h"
#include "ui_frmErrors.h"

namespace calyvox {

namespace {

const QString kOwner = QStringLiteral("frmMain");

} // namespace

frmErrors::frmErrors() : ui_(std::make_unique<Ui::frmErrors>()) {
    ui_->setupUi(this);
    connect(ui_->btnOK, &QPushButton::clicked, this, &frmErrors::btnOK_Click);
}

frmErrors::~frmErrors() = default;

void frmErrors::Load() {
    Forms::Instance().SetFormOwner(*this, kOwner);
    Dialogs::LoadDialogPosition(*this);
}

void frmErrors::Paint() {
    ui_->Message->setText(Dialogs::NameText(TheErrors().Message()));
    ui_->Content->setPlainText(Dialogs::NameText(TheErrors().Content()));
}

bool frmErrors::Unload() {
    TheErrors().Clear();
    Dialogs::SaveDialogPosition(*this);
    return true;
}

void frmErrors::btnOK_Click() {
    TheErrors().Clear();
    Forms::Instance().HideAndReturn(objectName(), kOwner);
}

} // namespace calyvox
