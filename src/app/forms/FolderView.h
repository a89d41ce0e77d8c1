// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeView>

#include <functional>
#include <optional>
#include <string>

namespace calyvox {

class FolderModel;

/// The host's folders as a tree with one current folder. What the user does only wishes for another folder:
/// the current one stays until the pending events have run and the question set with SetBeforeChange was
/// answered with yes. Paths are inside paths, the root's is empty. The owner sets the accessible name.
class FolderView : public QTreeView {
    Q_OBJECT

public:
    explicit FolderView(QWidget* parent = nullptr);

    std::string Path() const;
    /// The program's own move, without question and signal: opens what lies above the folder and scrolls it
    /// into view. False if there is no such folder; then the deepest one on the way is current. A wish that
    /// was not asked about yet is dropped.
    bool SelectPath(const std::string& path);
    /// Reads again what was read, without question and signal. If the current folder is gone, the deepest one
    /// above it that is left becomes current.
    void Refresh();
    /// The question may run events, and the view may be told anything meanwhile. Wishes that come before
    /// question and signal are done with are dropped. A folder that is gone from the disk is dropped from the
    /// tree instead of asked about. Without a question every wish comes true.
    void SetBeforeChange(std::function<bool(const std::string& path)> question);
    /// Renames the folder that the user has entered another name for, when pending events have run; false
    /// leaves it as it was. Without one nothing can be edited.
    void SetRename(std::function<bool(const std::string& path, const std::string& name)> rename);
    /// Takes over at once what an open editor says and closes it.
    void CloseEditor();

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

signals:
    /// After a wish came true.
    void Changed(const std::string& path);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    class Selection;
    struct WishedFolder {
        std::string Path;
        bool Scroll = true;
    };

    void Wish(const QModelIndex& index, bool weak);
    void Ask();
    void Answer(const WishedFolder& wish);
    void Keep(const std::function<void()>& change);
    bool IsThere(const std::string& path);
    void ShowFolder(const QModelIndex& index);
    void Rename();
    QModelIndex ClosedAbove(const QModelIndex& index) const;

    FolderModel* model_;
    Selection* selection_;
    std::function<bool(const std::string&)> question_;
    std::function<bool(const std::string&, const std::string&)> rename_;
    std::optional<std::pair<std::string, std::string>> renamed_; // path and name, not yet carried out
    std::optional<WishedFolder> wish_;
    bool asking_ = false;   // from the question to the end of the signal
    bool keeping_ = false;  // the tree is being read again
    bool byMouse_ = false;  // a mouse press is under way
    bool scrolled_ = false; // the current folder was put into view since the view is shown
};

} // namespace calyvox
