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
    connect(ui_->btnBack, &QPushButton::clicked, this, [this] { StepBy(SteppingKeys::Step::Back); });
    connect(ui_->btnNext, &QPushButton::clicked, this, [this] { StepBy(SteppingKeys::Step::Next); });
    for (QWidget* control : findChildren<QWidget*>())
        control->installEventFilter(this);
    installEventFilter(this);
}

frmID3V1::~frmID3V1() = default;

void frmID3V1::Load() {
    Forms::Instance().SetFormOwner(*this, kOwner);
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

void frmID3V1::StepBy(SteppingKeys::Step step) {
    const std::size_t row = SteppingKeys::Target(window_, step);
    if (row == RowList::kNone) return;
    SaveTag();
    SteppingKeys::GoTo(window_, row);
    ClearControls();
    LoadTag();
}

// Keys reach the form before its controls.
bool frmID3V1::eventFilter(QObject* watched, QEvent* event) {
    const bool down = event->type() == QEvent::KeyPress;
    if (!down && event->type() != QEvent::KeyRelease) return Form::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (!down) {
        const SteppingKeys::Step step = steppingKeys_.KeyUp(key);
        StepBy(step);
        return step != SteppingKeys::Step::None;
    }
    steppingKeys_.KeyDown(key);
    return KeyDown(watched, key.key());
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

} // namespace calyvox
