// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/Form.h"
#include "app/forms/RowListModel.h"
#include "mainwindow/forms/LockKeys.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

class QLabel;

namespace Ui {
class frmMain;
}

namespace calyvox {

class CommandBars;
class MainWindow;

/// The main window: the controls of TheMainWindow(), its load and its closing.
class frmMain : public Form {
    Q_OBJECT

public:
    /// endProcess ends the process at once, whatever is open.
    explicit frmMain(std::function<void()> endProcess);
    ~frmMain() override;

    void Load() override;
    bool QueryUnload(UnloadReason reason) override;
    bool Unload() override;
    void Activated() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void ConnectView();
    void ConnectCommands();
    void ConnectControls();
    void MakePanels();

    void LoadSettings();
    void LoadColumns();
    void FindFolder();
    void SelectStartFile();
    void LoadDatabaseMenu();
    void SaveSettings() const;
    void SaveColumns() const;

    void ShowPanel(int panel);
    void ShowLockKeys();
    void PlaceToolbar(int position);
    void ShowHeaderIcon(int column, bool ascending);
    bool IsTreeShown() const;
    void ToggleTree();
    void HideTree();
    QString EditorForm() const;
    void OpenEditor();
    void OpenEditorOfSelection();
    void FinishEdit();
    void CloseEdit();
    void submnuQuit();

    std::unique_ptr<Ui::frmMain> ui_;
    std::function<void()> endProcess_;
    MainWindow& window_;
    RowListModel rows_;
    std::unique_ptr<CommandBars> bars_;
    std::array<QLabel*, 8> panels_{};
    LockKeys lockKeys_;
    std::optional<std::pair<std::size_t, std::string>> edited_; // row and name, not yet taken over
    int treeWidth_ = 0;                                         // while the tree is hidden
    bool treeHadFocus_ = false;                                 // when it was disabled
    bool wasShown_ = false;
};

} // namespace calyvox
