// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/RowListModel.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QItemSelectionModel>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QRubberBand>
#include <QTreeView>

namespace calyvox {

/// A list of rows to select from, with columns. Which rows are selected, and which one is current, is kept
/// by the RowList: this view paints from it and turns mouse and keys into calls of it. Qt's own selection
/// holds the current index and nothing else (it takes minutes over many rows), so nobody asks it what is
/// selected. Model and view may go in either order.
class RowListView : public QTreeView {
    Q_OBJECT

public:
    explicit RowListView(QWidget* parent = nullptr);

    /// Once for a view.
    void SetRows(RowListModel& model);
    /// Null without a model.
    RowList* Rows() const { return model_ ? &model_->Rows() : nullptr; }
    /// False for a row that the list does not have.
    bool IsSelected(int row) const;

    /// Whole rows on one page; with clamp not more than the list has.
    int VisibleRows(bool clamp) const;
    /// Scrolls by as little as will do, never sideways. A row that the list does not have is passed over.
    void EnsureVisible(std::size_t row);
    /// Opens the row's text for editing.
    void EditRow(int row);
    /// Takes over what an open editor says and closes it.
    void CloseEditor();
    /// How the last editing ended: by Enter, or by itself with the text changed or not.
    enum class EditEnd { Entered, Left, LeftUnchanged };
    EditEnd LastEdit() const { return lastEdit_; }

    void scrollTo(const QModelIndex& index, ScrollHint hint = QAbstractItemView::EnsureVisible) override;
    void selectAll() override;
    void keyboardSearch(const QString& text) override;
    using QTreeView::edit;

signals:
    /// After each press and release of a button and each key, but for the second press of a double click.
    void UserActed();
    /// With the left button.
    void RowDoubleClicked(int row);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    using Command = QItemSelectionModel::SelectionFlags;

    void Obey(int first, int last, Command command);
    void ObeyRange(int first, int last, Command command);
    Command PressCommand(int row, const QMouseEvent& event) const;
    Command ReleaseCommand(int row, const QMouseEvent& event) const;
    Command DragCommand(Qt::KeyboardModifiers modifiers) const;
    void PressSpace(Qt::KeyboardModifiers modifiers);
    void TellToggled(int row);
    void BeginPress(const QMouseEvent& event);
    void DragTo(QPoint place, Qt::KeyboardModifiers modifiers);
    void BandTo(QPoint place, Qt::KeyboardModifiers modifiers);
    void EndDrag();
    void ShowSelection(int first, int last);
    void ShowCurrent();
    int RowHeight() const;
    int RowAt(int y) const;
    QPoint Offset() const;

    QPointer<RowListModel> model_;
    QPersistentModelIndex anchor_; // where a range begins
    int pressedRow_ = -1;
    QPoint pressed_;
    QPoint dragged_;
    Qt::KeyboardModifiers dragModifiers_;
    bool dragSelects_ = true; // what dragging with Ctrl does
    bool banding_ = false;
    QPoint bandFrom_; // from the top of the first row
    QRubberBand* band_ = nullptr;
    QBasicTimer scroll_;
    QElapsedTimer sinceTyped_;
    EditEnd lastEdit_ = EditEnd::Entered;
};

} // namespace calyvox
