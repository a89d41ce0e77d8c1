// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/RowListAccessible.h"

#include "app/forms/RowListView.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QHeaderView>
#include <QPointer>

namespace calyvox::RowListAccessible {

namespace {

using Interface = QAccessibleInterface;

// By row and column, so that it costs no index that every sort would have to move. Row -1 is the titles.
class Cell final : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    Cell(RowListView* view, int row, int column) : view_(view), row_(row), column_(column) {}

    bool isValid() const override { return view_ && view_->model() && row_ < view_->model()->rowCount(); }
    QObject* object() const override { return nullptr; }
    Interface* parent() const override { return QAccessible::queryAccessibleInterface(view_); }
    Interface* child(int) const override { return nullptr; }
    Interface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const Interface*) const override { return -1; }
    QAccessible::Role role() const override {
        return row_ < 0 ? QAccessible::ColumnHeader : QAccessible::Cell;
    }
    QString text(QAccessible::Text kind) const override {
        if (!isValid() || kind != QAccessible::Name) return {};
        const QAbstractItemModel& model = *view_->model();
        return (row_ < 0 ? model.headerData(column_, Qt::Horizontal) : Index().data()).toString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : nullptr;
    }

    bool isSelected() const override { return isValid() && view_->IsSelected(row_); }
    QList<Interface*> columnHeaderCells() const override { return {parent()->child(column_)}; }
    QList<Interface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return column_; }
    int rowIndex() const override { return row_; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    Interface* table() const override { return parent(); }

private:
    QModelIndex Index() const { return view_->model()->index(row_, column_); }

    QPointer<RowListView> view_;
    int row_;
    int column_;
};

QRect Cell::rect() const {
    if (!isValid()) return {};
    if (row_ >= 0) {
        const QRect rect = view_->visualRect(Index());
        return {view_->viewport()->mapToGlobal(rect.topLeft()), rect.size()};
    }
    const QHeaderView& header = *view_->header();
    return {header.mapToGlobal(QPoint(header.sectionViewportPosition(column_), 0)),
            QSize(header.sectionSize(column_), header.height())};
}

QAccessible::State Cell::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid || row_ < 0) return state;
    state.disabled = !view_->isEnabled();
    state.selectable = state.extSelectable = state.focusable = true;
    state.selected = view_->IsSelected(row_);
    const QVariant check = Index().data(Qt::CheckStateRole);
    state.checkable = check.isValid();
    state.checked = check.toInt() == Qt::Checked;
    state.focused = view_->hasFocus() && Index() == view_->currentIndex();
    const QRect page(view_->viewport()->mapToGlobal(QPoint()), view_->viewport()->size());
    state.offscreen = state.invisible = !page.intersects(rect());
    return state;
}

// Children are the titles, then the cells row by row: what the view's own events of focus count in.
class Table final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit Table(RowListView* view) : QAccessibleWidget(view, QAccessible::Table), view_(view) {}
    ~Table() override {
        for (const QAccessible::Id id : std::as_const(cells_))
            QAccessible::deleteAccessibleInterface(id);
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    int childCount() const override { return (rowCount() + 1) * columnCount(); }
    Interface* child(int number) const override;
    int indexOfChild(const Interface* child) const override {
        const auto* const cell = dynamic_cast<const Cell*>(child);
        return cell ? (cell->rowIndex() + 1) * columnCount() + cell->columnIndex() : -1;
    }
    Interface* childAt(int x, int y) const override {
        const QModelIndex index = view_->indexAt(view_->viewport()->mapFromGlobal(QPoint(x, y)));
        return index.isValid() ? cellAt(index.row(), index.column()) : nullptr;
    }
    Interface* focusChild() const override {
        return view_->currentIndex().isValid() ? cellAt(view_->currentIndex().row(), 0) : nullptr;
    }

    Interface* caption() const override { return nullptr; }
    Interface* summary() const override { return nullptr; }
    Interface* cellAt(int row, int column) const override {
        return child((row + 1) * columnCount() + column);
    }
    int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
    QList<Interface*> selectedCells() const override;
    QString columnDescription(int column) const override {
        return view_->model() ? view_->model()->headerData(column, Qt::Horizontal).toString() : QString();
    }
    QString rowDescription(int) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override {
        return view_->Rows() ? static_cast<int>(view_->Rows()->SelectedCount()) : 0;
    }
    int columnCount() const override { return view_->model() ? view_->model()->columnCount() : 0; }
    int rowCount() const override { return view_->model() ? view_->model()->rowCount() : 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override { return view_->IsSelected(row); }
    bool selectRow(int row) override { return Select(row, RowList::Flag::On); }
    bool unselectRow(int row) override { return Select(row, RowList::Flag::Off); }
    bool selectColumn(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

private:
    bool Select(int row, RowList::Flag flag) {
        if (!view_->Rows() || row < 0 || row >= rowCount()) return false;
        view_->Rows()->Select(static_cast<std::size_t>(row), static_cast<std::size_t>(row), flag);
        return true;
    }

    RowListView* view_;
    mutable QHash<int, QAccessible::Id> cells_; // those that somebody asked for
};

Interface* Table::child(int number) const {
    const int columns = columnCount();
    if (columns == 0 || number < 0 || number >= childCount()) return nullptr;
    const auto known = cells_.constFind(number);
    if (known != cells_.constEnd()) return QAccessible::accessibleInterface(*known);
    auto* const cell = new Cell(view_, number / columns - 1, number % columns);
    cells_.insert(number, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

QList<int> Table::selectedRows() const {
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row)
        if (view_->IsSelected(row)) rows << row;
    return rows;
}

QList<Interface*> Table::selectedCells() const {
    QList<Interface*> cells;
    for (const int row : selectedRows())
        for (int column = 0; column < columnCount(); ++column)
            cells << cellAt(row, column);
    return cells;
}

Interface* Make(const QString& className, QObject* object) {
    if (className != QLatin1String(RowListView::staticMetaObject.className())) return nullptr;
    auto* const view = qobject_cast<RowListView*>(object);
    return view ? new Table(view) : nullptr;
}

} // namespace

void Install() { QAccessible::installFactory(Make); }

} // namespace calyvox::RowListAccessible
