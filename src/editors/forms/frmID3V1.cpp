// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/forms/frmID3V1.h"

#include "app/forms/Dialogs.h"
#include "app/forms/Forms.h"
#include "app/forms/TagInput.h"
#include "editors/GenreRows.h"
#include "mainwindow/MainWindow.h"
#include "ui_frmID3V1.h"

#include <QKeyEvent>

namespace calyvox {

namespace {

const QString kOwner = QStringLiteral("frmMain");

std::string TextOf(const QLineEdit& box, const std::string& loaded) {
    return box.isModified() ? Dialogs::TagBytes(box.text()) : loaded;
}

} // namespace

frmID3V1::frmID3V1() : ui_(std::make_unique<Ui::frmID3V1>()), window_(TheMainWindow()) {
    ui_->setupUi(this);
    for (const GenreRow& row : GenreRows())
        ui_->Genre->addItem(Dialogs::TagText(row.Name), row.Number);
    for (QLineEdit* box : {ui_->Artist, ui_->Title, ui_->Album, ui_->Comment})
        TagInput::HoldToCodePage(*box);
    for (QLineEdit* box : {ui_->Track, ui_->Year})
        TagInput::HoldToDigits(*box);
    connect(ui_->btnOK, &QPushButton::clicked, this, &frmID3V1::btnOK_Click);
    connect(ui_->btnCancel, &QPushButton::clicked, this, &frmID3V1::btnCancel_Click);
    connect(ui_->btnBack, &QPushButton::clicked, this, &frmID3V1::btnBack_Click);
    connect(ui_->btnNext, &QPushButton::clicked, this, &frmID3V1::btnNext_Click);
    for (QWidget* control : findChildren<QWidget*>())
        control->installEventFilter(this);
    installEventFilter(this);
}

frmID3V1::~frmID3V1() = default;

void frmID3V1::Load() {
    if (Forms::Instance().IsLoaded(kOwner)) Forms::SetFormOwner(*this, *Forms::Instance().Touch(kOwner));
    Dialogs::LoadDialogPosition(*this);
    LoadTag();
}

bool frmID3V1::Unload() {
    Dialogs::SaveDialogPosition(*this);
    return true;
}

void frmID3V1::LoadTag() {
    const std::size_t row = window_.FileList.Current();
    if (row == RowList::kNone) return;
    loaded_ = ID3V1Fields::LoadTag(window_.FileOf(row));
    ui_->Artist->setText(Dialogs::TagText(loaded_.Artist));
    ui_->Title->setText(Dialogs::TagText(loaded_.Title));
    ui_->Album->setText(Dialogs::TagText(loaded_.Album));
    ui_->Track->setText(Dialogs::TagText(loaded_.Track));
    ui_->Genre->setCurrentIndex(static_cast<int>(loaded_.Genre));
    ui_->Year->setText(Dialogs::TagText(loaded_.Year));
    ui_->Comment->setText(Dialogs::TagText(loaded_.Comment));
}

void frmID3V1::ClearControls() {
    for (QLineEdit* box : {ui_->Artist, ui_->Title, ui_->Album, ui_->Track, ui_->Year, ui_->Comment})
        box->clear();
    ui_->Genre->setCurrentIndex(0);
}

void frmID3V1::SaveTag() {
    const std::size_t row = window_.FileList.Current();
    if (row == RowList::kNone) return;
    ID3V1Fields fields;
    fields.Artist = TextOf(*ui_->Artist, loaded_.Artist);
    fields.Title = TextOf(*ui_->Title, loaded_.Title);
    fields.Album = TextOf(*ui_->Album, loaded_.Album);
    fields.Track = TextOf(*ui_->Track, loaded_.Track);
    fields.Year = TextOf(*ui_->Year, loaded_.Year);
    fields.Comment = TextOf(*ui_->Comment, loaded_.Comment);
    fields.Genre = static_cast<std::size_t>(ui_->Genre->currentIndex());
    fields.SaveTag(window_, row);
}

void frmID3V1::btnOK_Click() {
    SaveTag();
    Forms::Instance().Unload(objectName());
}

// What stepping has saved stays saved.
void frmID3V1::btnCancel_Click() { Forms::Instance().Unload(objectName()); }

void frmID3V1::btnBack_Click() {
    const std::size_t row = window_.FileList.Current();
    if (row != RowList::kNone && row > 0) StepTo(row - 1);
}

void frmID3V1::btnNext_Click() {
    const std::size_t row = window_.FileList.Current();
    if (row != RowList::kNone && row + 1 < window_.FileList.Count()) StepTo(row + 1);
}

void frmID3V1::StepTo(std::size_t row) {
    SaveTag();
    RowList& list = window_.FileList;
    const std::size_t left = list.Current();
    list.Select(row, row, RowList::Flag::On);
    list.SetCurrent(row);
    list.Select(left, left, RowList::Flag::Off);
    window_.View.EnsureVisible(row);
    ClearControls();
    LoadTag();
}

// Keys reach the form before its controls. A key that is held down counts once, when it is let go; Ctrl may
// have been let go before it.
bool frmID3V1::eventFilter(QObject* watched, QEvent* event) {
    const bool down = event->type() == QEvent::KeyPress;
    if (!down && event->type() != QEvent::KeyRelease) return Form::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool withCtrl = key->modifiers() == Qt::ControlModifier;
    if (!down) return !key->isAutoRepeat() && KeyUp(key->key(), withCtrl);
    if (!key->isAutoRepeat()) steppingKey_ = withCtrl ? key->key() : 0;
    return KeyDown(watched, key->key());
}

bool frmID3V1::KeyDown(QObject* control, int key) {
    const bool enter = (key == Qt::Key_Return || key == Qt::Key_Enter) && control != ui_->Genre;
    if (enter) {
        auto* const button = qobject_cast<QPushButton*>(control);
        (button ? button : ui_->btnOK)->click();
    }
    if (key == Qt::Key_Escape) btnCancel_Click();
    return enter || key == Qt::Key_Escape;
}

bool frmID3V1::KeyUp(int key, bool withCtrl) {
    const bool steps = (key == Qt::Key_B || key == Qt::Key_N) && (withCtrl || key == steppingKey_);
    if (steps && key == Qt::Key_B) btnBack_Click();
    if (steps && key == Qt::Key_N) btnNext_Click();
    return steps;
}

} // namespace calyvox
