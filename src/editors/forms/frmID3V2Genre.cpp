// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/forms/frmID3V2Genre.h"

#include "app/IniFile.h"
#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/forms/Dialogs.h"
#include "app/forms/Forms.h"
#include "app/forms/TagInput.h"
#include "app/modBase.h"
#include "editors/GenreRows.h"
#include "mainwindow/MainOptions.h"
#include "ui_frmID3V2Genre.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace calyvox {

namespace {

const QString kOwner = QStringLiteral("frmMain");
const char* const kOwnGenreOnly = "Settings\\OwnGenreOnly";
constexpr int kWidth = 8535 / Dialogs::kTwips;
constexpr int kLeastHeight = 7000 / Dialogs::kTwips;
constexpr int kLeastLines = 8; // of the list, its titles included

QStringList Titles() {
    return {QStringLiteral("ID3V2 Genre"), QStringLiteral("ID3V1 Genre for Transfer 1 to 2"),
            QStringLiteral("ID3V1 Genre for Transfer 2 to 1")};
}

} // namespace

frmID3V2Genre::frmID3V2Genre()
    : model_(catalogue_.OwnGenre, Titles()), ui_(std::make_unique<Ui::frmID3V2Genre>()) {
    ui_->setupUi(this);
    for (QComboBox* box : {ui_->Genre1, ui_->Genre2})
        for (const GenreRow& row : GenreRows())
            box->addItem(Dialogs::TagText(row.Name), row.Number);
    TagInput::HoldToCodePage(*ui_->NewGenre);
    LayOut();
    connect(ui_->btnAdd, &QPushButton::clicked, this, &frmID3V2Genre::btnAdd_Click);
    connect(ui_->btnRemove, &QPushButton::clicked, this, &frmID3V2Genre::btnRemove_Click);
    connect(ui_->btnClose, &QPushButton::clicked, this, &frmID3V2Genre::btnClose_Click);
    connect(ui_->OwnGenre, &RowListView::UserActed, this, &frmID3V2Genre::FollowCurrent);
    connect(ui_->OwnGenre, &RowListView::clicked, this,
            [this](const QModelIndex& index) { OwnGenre_Click(static_cast<std::size_t>(index.row())); });
}

frmID3V2Genre::~frmID3V2Genre() = default;

// The order of the rows is the user's, so nothing sorts them. Large fonts may need a larger window.
void frmID3V2Genre::LayOut() {
    ui_->OwnGenre->SetRows(model_);
    QHeaderView& header = *ui_->OwnGenre->header();
    header.setSectionsClickable(false);
    header.setSortIndicatorShown(false);
    header.setSectionsMovable(false);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
    int listWidth = header.sectionSizeHint(0) + ui_->OwnGenre->verticalScrollBar()->sizeHint().width();
    for (const int column : {1, 2}) {
        header.resizeSection(column, header.sectionSizeHint(column));
        listWidth += header.sectionSize(column);
    }
    ui_->OwnGenre->setMinimumSize(listWidth, kLeastLines * fontMetrics().height());
    const int width = std::max(kWidth, minimumSizeHint().width());
    setMinimumSize(width, std::max(kLeastHeight, layout()->totalMinimumHeightForWidth(width)));
    resize(minimumSize());
}

void frmID3V2Genre::Load() {
    Forms::Instance().SetFormOwner(*this, kOwner);
    file_ = IniFilePath();
    ReadGenres();
    BeginEntry();
    if (const auto only = NumberSetting(kOwnGenreOnly)) ui_->chkOnly->setChecked(*only == 1);
    Dialogs::LoadDialogPosition(*this);
}

bool frmID3V2Genre::Unload() {
    if (!catalogue_.WriteGenres(file_))
        modBase::MsgResult = modBase::ShowMessage("The genres could not be written to the file:\r" + file_,
                                                  MsgBox::kExclamation, "Error");
    Dialogs::SaveDialogPosition(*this);
    Dialogs::Guarded(
        [&] { WriteSetting(kOwnGenreOnly, ui_->chkOnly->isChecked() ? "1" : "0", RegistryStore::kNumber); });
    return true;
}

void frmID3V2Genre::ReadGenres() { catalogue_.ReadGenres(file_); }

void frmID3V2Genre::btnAdd_Click() {
    GenreCatalogue::Entry entry;
    entry.Name = Dialogs::TagBytes(ui_->NewGenre->text());
    entry.Genre1 = static_cast<std::size_t>(ui_->Genre1->currentIndex());
    entry.Genre2 = static_cast<std::size_t>(ui_->Genre2->currentIndex());
    const std::size_t row = catalogue_.Add(entry);
    if (row == RowList::kNone) return;
    model_.Flush();
    ui_->OwnGenre->EnsureVisible(row);
    BeginEntry();
}

void frmID3V2Genre::btnRemove_Click() {
    catalogue_.Remove();
    ui_->OwnGenre->EnsureVisible(catalogue_.OwnGenre.Current());
    BeginEntry();
}

void frmID3V2Genre::btnClose_Click() { Forms::Instance().Unload(objectName()); }

void frmID3V2Genre::OwnGenre_Click(std::size_t row) {
    followed_ = row;
    ShowEntry(catalogue_.EntryOf(row));
}

// One row is selected, the current one, whatever mouse and keys would select.
void frmID3V2Genre::FollowCurrent() {
    RowList& rows = catalogue_.OwnGenre;
    const std::size_t row = rows.Current();
    if (row == RowList::kNone) return;
    rows.SelectOnly(row, row);
    if (row != followed_) OwnGenre_Click(row);
}

void frmID3V2Genre::BeginEntry() {
    RowList& rows = catalogue_.OwnGenre;
    followed_ = rows.Current();
    if (followed_ != RowList::kNone) rows.SelectOnly(followed_, followed_);
    ShowEntry({});
    ui_->NewGenre->setFocus();
}

void frmID3V2Genre::ShowEntry(const GenreCatalogue::Entry& entry) {
    ui_->NewGenre->setText(Dialogs::TagText(entry.Name));
    ui_->Genre1->setCurrentIndex(static_cast<int>(entry.Genre1));
    ui_->Genre2->setCurrentIndex(static_cast<int>(entry.Genre2));
}

// In the list Enter takes the row up to be changed.
void frmID3V2Genre::EnterPressed() {
    const std::size_t row = catalogue_.OwnGenre.Current();
    if (focusWidget() != ui_->OwnGenre) return btnAdd_Click();
    if (row == RowList::kNone) return;
    OwnGenre_Click(row);
    ui_->NewGenre->setFocus();
    ui_->NewGenre->selectAll();
}

// What the controls leave over.
void frmID3V2Genre::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        EnterPressed();
    else if (key == Qt::Key_Escape)
        btnClose_Click();
    else
        Form::keyPressEvent(event);
}

} // namespace calyvox
