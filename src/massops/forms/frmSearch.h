// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/Form.h"
#include "massops/ListViewFind.h"

#include <memory>

namespace Ui {
class frmSearch;
}

namespace calyvox {

class MainWindow;

/// Selects the rows of the main list that match a pattern, and stays open beside the list.
class frmSearch : public Form {
    Q_OBJECT

public:
    frmSearch();
    ~frmSearch() override;

    /// Brings the form to the front, with the focus in its text box.
    static void submnuSearch();

    void Load() override;
    bool QueryUnload(UnloadReason reason) override;
    bool Unload() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void btnSearch_Click();
    void btnGroup_Click();
    void btnClose_Click();
    void LoadSettings();
    void SaveSettings() const;
    SearchOptions Options() const;

    std::unique_ptr<Ui::frmSearch> ui_;
    MainWindow& window_;
};

} // namespace calyvox
