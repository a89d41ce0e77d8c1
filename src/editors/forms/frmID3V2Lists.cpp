// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/Dialogs.h"
#include "app/forms/Forms.h"
#include "app/forms/RowListView.h"
#include "editors/ListRows.h"
#include "editors/forms/CommentRequest.h"
#include "editors/forms/frmID3V2.h"
#include "engine/MP3.h"
#include "mainwindow/MainWindow.h"
#include "ui_frmID3V2.h"

#include <QHeaderView>

namespace calyvox {

namespace {

constexpr int kNarrow = 80;
constexpr int kWide = 200;

// The order of the rows is the user's, so nothing sorts them. The last column takes what is left.
void Prepare(RowListView& view, RowListModel& model, std::initializer_list<int> widths) {
    view.SetRows(model);
    QHeaderView& header = *view.header();
    header.setSectionsClickable(false);
    header.setSortIndicatorShown(false);
    header.setSectionsMovable(false);
    header.setStretchLastSection(true);
    int column = 0;
    for (const int width : widths)
        header.resizeSection(column++, width);
    if (widths.size() == 0) view.setHeaderHidden(true);
}

} // namespace

void frmID3V2::PrepareLists() {
    ratings_.SetCheckable(true);
    unsupported_.SetCheckable(true);
    Prepare(*ui_->GenreList, genres_, {});
    Prepare(*ui_->CommInfoList, addresses_, {});
    Prepare(*ui_->COMMList, comments_, {kWide, kNarrow});
    Prepare(*ui_->POPMList, ratings_, {kWide + kWide, kNarrow});
    Prepare(*ui_->SupportList, unsupported_, {kNarrow + kNarrow});
}

void frmID3V2::ConnectLists() {
    const auto follow = [this](RowListView* view, QLineEdit* box) {
        connect(view, &RowListView::UserActed, this, [this, view, box] { Follow(*view, box); });
    };
    follow(ui_->GenreList, ui_->TCON->lineEdit());
    follow(ui_->CommInfoList, ui_->WCOM);
    follow(ui_->COMMList, nullptr);
    follow(ui_->POPMList, nullptr);
    follow(ui_->SupportList, nullptr);
    connect(ui_->COMMList, &RowListView::RowDoubleClicked, this, &frmID3V2::btnEditCOMM_Click);
    connect(ui_->btnAddGL, &QPushButton::clicked, this, &frmID3V2::btnAddGL_Click);
    connect(ui_->btnRemoveGL, &QPushButton::clicked, this,
            [this] { ListRows::RemoveSelected(fields_.GenreList); });
    connect(ui_->btnStandard, &QPushButton::clicked, this,
            [this] { ListRows::MoveSelectedToTop(fields_.GenreList); });
    connect(ui_->btnAddCL, &QPushButton::clicked, this, &frmID3V2::btnAddCL_Click);
    connect(ui_->btnRemoveCL, &QPushButton::clicked, this, &frmID3V2::btnRemoveCL_Click);
    connect(ui_->btnAddCOMM, &QPushButton::clicked, this, &frmID3V2::btnAddCOMM_Click);
    connect(ui_->btnEditCOMM, &QPushButton::clicked, this, &frmID3V2::btnEditCOMM_Click);
    connect(ui_->btnRemoveCOMM, &QPushButton::clicked, this, &frmID3V2::btnRemoveCOMM_Click);
    connect(ui_->btnCOMMStandard, &QPushButton::clicked, this, &frmID3V2::btnCOMMStandard_Click);
}

// One row is selected, the current one, whatever mouse and keys would select; a box takes its text. Where
// there is a box, none may be selected too.
void frmID3V2::Follow(const RowListView& view, QLineEdit* box) {
    RowList& rows = *view.Rows();
    if (rows.Current() == RowList::kNone || (box && rows.SelectedCount() == 0)) return;
    rows.SelectOnly(rows.Current(), rows.Current());
    if (box) box->setText(Dialogs::TagText(rows.At(rows.Current()).Text));
}

void frmID3V2::btnAddGL_Click() {
    if (!ListRows::AddNew(fields_.GenreList, Dialogs::TagBytes(ui_->TCON->currentText()))) return;
    ui_->TCON->lineEdit()->clear();
    genres_.Flush();
    ui_->GenreList->EnsureVisible(fields_.GenreList.Count() - 1);
}

void frmID3V2::btnAddCL_Click() {
    if (!ListRows::AddNew(fields_.CommInfoList, Dialogs::TagBytes(ui_->WCOM->text()))) return;
    addresses_.Flush();
    ui_->CommInfoList->EnsureVisible(fields_.CommInfoList.Count() - 1);
    ui_->WCOM->clear();
    ui_->WCOM->setFocus();
}

void frmID3V2::btnRemoveCL_Click() {
    const std::size_t row = window_.FileList.Current();
    if (row == RowList::kNone) return;
    if (!CommentList::btnRemoveCL_Click(fields_.CommInfoList, window_.FileOf(row).ID3V2())) return;
    ui_->WCOM->clear();
    ui_->WCOM->setFocus();
}

void frmID3V2::btnAddCOMM_Click() { EditComment(CommentList::btnAddCOMM_Click(), false); }

// The column that was clicked last has the focus.
void frmID3V2::btnEditCOMM_Click() {
    const bool beyond = commListX_ > ui_->COMMList->header()->sectionSize(0);
    if (const auto entry = CommentList::btnEditCOMM_Click(fields_.COMMList)) EditComment(*entry, beyond);
}

void frmID3V2::EditComment(const CommentList::Entry& entry, bool focusComment) {
    TheCommentRequest() = {&fields_.COMMList, entry, &fields_.Language, focusComment};
    Forms::Instance().ShowModal(QStringLiteral("frmCOMMEdit"), objectName());
}

// The comment dialog has gone.
void frmID3V2::Activated() {
    ui_->Language->setCurrentIndex(static_cast<int>(fields_.Language));
    ShowComments();
}

void frmID3V2::btnRemoveCOMM_Click() {
    const std::size_t row = window_.FileList.Current();
    if (row == RowList::kNone) return;
    if (CommentList::btnRemoveCOMM_Click(fields_.COMMList, window_.FileOf(row).ID3V2()))
        fields_.CommRemoved = true;
    ShowComments();
}

void frmID3V2::btnCOMMStandard_Click() {
    CommentList::btnCOMMStandard_Click(fields_.COMMList);
    ShowComments();
}

void frmID3V2::ShowComments() {
    comments_.Flush();
    RowList& rows = fields_.COMMList;
    const std::size_t row = rows.Current();
    if (row == RowList::kNone) return;
    rows.SelectOnly(row, row);
    ui_->COMMList->EnsureVisible(row);
}

} // namespace calyvox
