// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/RowList.h"
#include "app/forms/Form.h"
#include "app/forms/RowListModel.h"
#include "automation/MassUpdate.h"

#include <QElapsedTimer>

#include <functional>
#include <memory>

namespace Ui {
class frmMassUpdate;
}

namespace calyvox {

/// The window of a mass update; with a data file on the command line it is the whole program.
class frmMassUpdate : public Form {
    Q_OBJECT

public:
    /// What differs where nobody looks at the window.
    struct Surroundings {
        /// The run starts and the form goes by themselves, whatever the command line says.
        bool Unattended = false;
        /// Gets each row when its file is done.
        std::function<void(const RowList::Row&)> RowDone = [](const RowList::Row&) {};
        /// Gets the exit status that the process should end with, as soon as it is known.
        std::function<void(int)> SetExitStatus = [](int) {};
    };
    explicit frmMassUpdate(Surroundings surroundings);
    ~frmMassUpdate() override;

    void Load() override;
    bool QueryUnload(UnloadReason reason) override;
    /// Runs the whole update by itself; after errors the form stays, otherwise it goes.
    void AutoModus();

private:
    void ConnectControls();
    void btnStart_Click();
    void BeginRun();
    void EndRun();
    void ShowSummary();
    void FileDone(std::int32_t number, const RowList::Row& row);
    void ShowFilesDone();
    void SortBy(int column);

    std::unique_ptr<Ui::frmMassUpdate> ui_;
    Surroundings surroundings_;
    RowList rows_;
    RowListModel model_;
    MassUpdate update_;
    std::int32_t filesDone_ = 0;
    const RowList::Row* lastRow_ = nullptr; // of the last file done in this run
    QElapsedTimer sinceRepaint_;
};

} // namespace calyvox
