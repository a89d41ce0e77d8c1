// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/Form.h"
#include "app/forms/RowListModel.h"
#include "editors/GenreCatalogue.h"

#include <cstddef>
#include <memory>
#include <string>

namespace Ui {
class frmID3V2Genre;
}

namespace calyvox {

/// Edits the catalogue of own genres. There is no way back: closing writes it, however the form is closed.
class frmID3V2Genre : public Form {
    Q_OBJECT

public:
    frmID3V2Genre();
    ~frmID3V2Genre() override;

    void Load() override;
    bool Unload() override;
    /// The rows as the ini file has them.
    void ReadGenres();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void btnAdd_Click();
    void btnRemove_Click();
    void btnClose_Click();
    void OwnGenre_Click(std::size_t row);
    void LayOut();
    void FollowCurrent();
    void BeginEntry();
    void ShowEntry(const GenreCatalogue::Entry& entry);
    void EnterPressed();

    std::string file_; // inside path
    GenreCatalogue catalogue_;
    RowListModel model_;
    std::unique_ptr<Ui::frmID3V2Genre> ui_;
    std::size_t followed_ = RowList::kNone; // the current row that the boxes know of
};

} // namespace calyvox
