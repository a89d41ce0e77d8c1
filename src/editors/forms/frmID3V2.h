// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/Form.h"
#include "app/forms/RowListModel.h"
#include "editors/CommentList.h"
#include "editors/ID3V2Fields.h"
#include "editors/forms/SteppingKeys.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class QLineEdit;
class QPushButton;

namespace Ui {
class frmID3V2;
}

namespace calyvox {

class MainWindow;
class RowListView;

/// Edits the ID3V2 tag of the list's current row and steps through the rows above and below. In the list
/// layout the file has any number of comments and genres, in the single layout (SingleCOMMGenre) one of each.
class frmID3V2 : public Form {
    Q_OBJECT

public:
    frmID3V2();
    ~frmID3V2() override;

    void Load() override;
    /// The close box is a Cancel.
    bool QueryUnload(UnloadReason reason) override;
    bool Unload() override;
    void Activated() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CollectBoxes();
    void FillRows();
    void ConnectButtons();
    void ChooseLayout();
    void LoadTag();
    void TakeTexts();
    void ShowTexts();
    void Exchange(const std::function<void(std::size_t row)>& exchange);
    void StepBy(SteppingKeys::Step step);
    void FocusTab();
    void btnOK_Click();
    void btnCancel_Click();
    bool KeyDown(QObject* control, QKeyEvent& key);

    void PrepareLists();
    void ConnectLists();
    void Follow(const RowListView& view, QLineEdit* box);
    void btnAddGL_Click();
    void btnAddCL_Click();
    void btnRemoveCL_Click();
    void btnAddCOMM_Click();
    void btnEditCOMM_Click();
    void btnRemoveCOMM_Click();
    void btnCOMMStandard_Click();
    void EditComment(const CommentList::Entry& entry, bool focusComment);
    void ShowComments();

    MainWindow& window_;
    ID3V2Fields fields_;
    RowListModel genres_;
    RowListModel comments_;
    RowListModel addresses_;
    RowListModel ratings_;
    RowListModel unsupported_;
    std::unique_ptr<Ui::frmID3V2> ui_;
    std::vector<std::pair<std::string, QLineEdit*>> boxes_; // of the fields' texts, by control name
    SteppingKeys steppingKeys_;
    int commListX_ = 0; // of the last mouse press in COMMList
};

} // namespace calyvox
