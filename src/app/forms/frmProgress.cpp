// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/frmProgress.h"

#include "app/forms/Dialogs.h"
#include "app/modBase.h"
#include "ui_frmProgress.h"

#include <limits>

namespace calyvox {

namespace {

// Bars count in int; files may be longer.
void SetBar(QProgressBar& bar, std::int64_t value, std::int64_t max) {
    constexpr std::int64_t kMost = std::numeric_limits<int>::max();
    const std::int64_t scale = max / kMost + 1;
    bar.setMaximum(static_cast<int>(max / scale));
    bar.setValue(static_cast<int>(value / scale));
    bar.repaint();
}

} // namespace

frmProgress::frmProgress() : ui_(std::make_unique<Ui::frmProgress>()) {
    ui_->setupUi(this);
    connect(ui_->btnCancel, &QPushButton::clicked, this, [] { modBase::CancelRun = true; });
}

frmProgress::~frmProgress() = default;

void frmProgress::Paint(const ProgressState& state) {
    setWindowTitle(Dialogs::NameText(state.Caption));
    ui_->btnCancel->setEnabled(state.CanCancel);
    SetBar(*ui_->ProgressBar, state.Value, state.Max);
    SetBar(*ui_->WriteBar, state.WriteValue, state.WriteMax);
}

} // namespace calyvox
