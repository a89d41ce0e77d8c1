// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "automation/forms/frmMassUpdate.h"

#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/forms/Forms.h"
#include "app/modBase.h"
#include "platform/CodePage.h"
#include "ui_frmMassUpdate.h"

namespace calyvox {

namespace {

// Bars and captions are repainted no more often; a repaint costs more than a file.
constexpr int kRepaintMs = 40;

} // namespace

frmMassUpdate::frmMassUpdate(Surroundings surroundings)
    : ui_(std::make_unique<Ui::frmMassUpdate>()), surroundings_(std::move(surroundings)),
      model_(rows_, {tr("File"), tr("Update successful?")}),
      update_(modBase::CommandLine.DataFilePath(), rows_) {
    ui_->setupUi(this);
    ui_->UpdatedFiles->setModel(&model_);
    ui_->UpdatedFiles->header()->setSectionsClickable(true);
    ui_->UpdatedFiles->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ui_->UpdatedFiles->header()->setSectionResizeMode(1, QHeaderView::Interactive);
    const QString widest = QStringLiteral("ID3V1 (Not updated) - ID3V2 (Not updated)");
    ui_->UpdatedFiles->header()->resizeSection(1, fontMetrics().horizontalAdvance(widest) * 11 / 10);
    ui_->WarningIcon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(32, 32));
    ConnectControls();
}

frmMassUpdate::~frmMassUpdate() = default;

void frmMassUpdate::ConnectControls() {
    connect(ui_->btnStart, &QPushButton::clicked, this, &frmMassUpdate::btnStart_Click);
    connect(ui_->btnStop, &QPushButton::clicked, this, [this] { update_.Stop(); });
    connect(ui_->btnClose, &QPushButton::clicked, this, [this] { Forms::Instance().Unload(objectName()); });
    connect(ui_->UpdatedFiles->header(), &QHeaderView::sectionClicked, this, &frmMassUpdate::SortBy);
}

void frmMassUpdate::Load() {
    rows_.Clear();
    ui_->TNr->setText(QString::number(update_.Count()));
    if (update_.Count() == 0) {
        surroundings_.SetExitStatus(ExitStatus::kNothingToDo);
        modBase::MsgResult =
            modBase::ShowMessage("No files to update or wrong file format.\rUpdating tags finished!",
                                 MsgBox::kExclamation, "No files!");
        Forms::Instance().Unload(objectName());
        return;
    }
    if (!surroundings_.Unattended) show();
    if (CodePage::LeadingNumber(ReadSetting("Settings\\UnSync")) == 1) modBase::WriteUnSync() = true;
    if (modBase::CommandLine.AutoModus() || surroundings_.Unattended) AutoModus();
}

bool frmMassUpdate::QueryUnload(UnloadReason) { return ui_->btnClose->isEnabled(); }

void frmMassUpdate::AutoModus() {
    update_.ClearErrors();
    btnStart_Click();
    if (update_.Errors() == 0 || surroundings_.Unattended) Forms::Instance().Unload(objectName());
}

void frmMassUpdate::btnStart_Click() {
    BeginRun();
    update_.Run([this](std::int32_t number, const RowList::Row& row) { FileDone(number, row); });
    EndRun();
    if (!modBase::CommandLine.AutoModus() || update_.Errors() > 0) ShowSummary();
}

void frmMassUpdate::BeginRun() {
    ui_->btnStart->setEnabled(false);
    ui_->btnClose->setEnabled(false);
    ui_->btnStop->setEnabled(true);
    ui_->btnStop->setFocus();
    ui_->ProgressBar->setMaximum(update_.Count());
    filesDone_ = 0;
    lastRow_ = nullptr;
    ShowFilesDone();
}

void frmMassUpdate::EndRun() {
    ShowFilesDone();
    ui_->ProgressBar->setValue(ui_->ProgressBar->maximum());
    setWindowTitle(tr("Calyvox - Finished updating"));
    ui_->btnStart->setEnabled(true);
    ui_->btnClose->setEnabled(true);
    ui_->btnStop->setEnabled(false);
    ui_->btnClose->setFocus();
    surroundings_.SetExitStatus(update_.Errors() == 0 ? ExitStatus::kNoErrors : ExitStatus::kErrors);
}

void frmMassUpdate::ShowSummary() {
    const std::string text = "Summery of tag updating:\r\rUpdated files: " + ui_->TNr->text().toStdString() +
                             "\rNumber of errors: " + std::to_string(update_.Errors());
    modBase::MsgResult = modBase::ShowMessage(text, MsgBox::kOkOnly, "Summery");
}

void frmMassUpdate::FileDone(std::int32_t number, const RowList::Row& row) {
    surroundings_.RowDone(row);
    filesDone_ = number;
    lastRow_ = &row;
    if (!sinceRepaint_.isValid() || sinceRepaint_.elapsed() >= kRepaintMs) ShowFilesDone();
}

void frmMassUpdate::ShowFilesDone() {
    sinceRepaint_.start();
    ui_->ProgressBar->setValue(filesDone_);
    ui_->FNr->setText(QString::number(filesDone_));
    model_.Flush();
    if (lastRow_) ui_->UpdatedFiles->scrollTo(model_.index(static_cast<int>(rows_.PositionOf(*lastRow_)), 0));
}

void frmMassUpdate::SortBy(int column) {
    rows_.SortBy(static_cast<std::size_t>(column));
    ui_->UpdatedFiles->header()->setSortIndicatorShown(true);
    ui_->UpdatedFiles->header()->setSortIndicator(column, rows_.Ascending() ? Qt::AscendingOrder
                                                                            : Qt::DescendingOrder);
}

} // namespace calyvox
