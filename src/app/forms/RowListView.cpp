// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/RowListView.h"

#include "app/forms/RowListAccessible.h"

#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <functional>

namespace calyvox {

namespace {

using Selection = QItemSelectionModel;

constexpr int kScrollMs = 40;
constexpr int kPixelsPerStep = 16; // a pointer that far outside scrolls one row more at a time

constexpr Selection::SelectionFlags kNothing = Selection::NoUpdate;
constexpr Selection::SelectionFlags kOnly = Selection::ClearAndSelect | Selection::Rows;

bool HasControl(Qt::KeyboardModifiers modifiers) { return modifiers.testFlag(Qt::ControlModifier); }
bool HasShift(Qt::KeyboardModifiers modifiers) { return modifiers.testFlag(Qt::ShiftModifier); }

Selection::SelectionFlags RangeCommand(Qt::KeyboardModifiers modifiers) {
    return (HasControl(modifiers) ? kNothing : Selection::Clear) | Selection::SelectCurrent | Selection::Rows;
}

RowList::Flag FlagOf(Selection::SelectionFlags command) {
    if (command & Selection::Toggle) return RowList::Flag::Flip;
    return command & Selection::Deselect ? RowList::Flag::Off : RowList::Flag::On;
}

// Keeps the current index, always in column 0. Whatever the view would select goes to the sink: every way
// through the view ends in one of the two select, and the ranges stay empty.
class CurrentOnly : public QItemSelectionModel {
public:
    using Sink = std::function<void(int first, int last, SelectionFlags command)>;
    CurrentOnly(QAbstractItemModel* model, QObject* parent, Sink sink)
        : QItemSelectionModel(model, parent), sink_(std::move(sink)) {}

    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override {
        QItemSelectionModel::setCurrentIndex(index.isValid() ? index.siblingAtColumn(0) : index, command);
    }
    void select(const QModelIndex& index, SelectionFlags command) override {
        if (command != NoUpdate) sink_(index.row(), index.row(), command);
    }
    void select(const QItemSelection& selection, SelectionFlags command) override {
        if (command == NoUpdate) return;
        int first = selection.isEmpty() ? -1 : selection.first().top();
        int last = -1;
        for (const QItemSelectionRange& range : selection) {
            first = std::min(first, range.top());
            last = std::max(last, range.bottom());
        }
        sink_(first, last, command);
    }

private:
    Sink sink_;
};

} // namespace

RowListView::RowListView(QWidget* parent) : QTreeView(parent) {
    RowListAccessible::Install();
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(EditKeyPressed);
    setHorizontalScrollMode(ScrollPerPixel);
    header()->setFirstSectionMovable(true);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(true);
    header()->setStretchLastSection(false);
    connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.isValid()) emit RowDoubleClicked(index.row());
    });
}

void RowListView::SetRows(RowListModel& model) {
    model_ = &model;
    anchor_ = QModelIndex();
    setModel(&model);
    const QItemSelectionModel* const replaced = selectionModel();
    setSelectionModel(new CurrentOnly(
        &model, this, [this](int first, int last, Command command) { Obey(first, last, command); }));
    delete replaced;
    connect(&model, &RowListModel::RowsSelectionChanged, this, &RowListView::ShowSelection);
    connect(&model, &RowListModel::CurrentRowChanged, this, &RowListView::ShowCurrent);
    connect(&model, &RowListModel::CheckToggled, this, &RowListView::TellToggled);
    connect(&model, &RowListModel::rowsInserted, this, &RowListView::ShowCurrent);
    connect(&model, &RowListModel::layoutChanged, this, &RowListView::ShowCurrent);
    connect(&model, &RowListModel::modelReset, this, &RowListView::ShowCurrent);
    ShowCurrent();
}

bool RowListView::IsSelected(int row) const {
    const RowList* const rows = Rows();
    const auto position = static_cast<std::size_t>(row);
    return rows && position < rows->Count() && rows->IsSelected(position);
}

// Only what can be seen is painted again.
void RowListView::ShowSelection(int first, int last) {
    const int top = verticalScrollBar()->value();
    const int height = std::max(1, RowHeight());
    first = std::max(first, top);
    last = std::min(last, top + viewport()->height() / height + 1);
    if (first <= last)
        viewport()->update(0, (first - top) * height, viewport()->width(), (last - first + 1) * height);
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(this, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&event);
}

// What the program makes current is not scrolled to; it asks for that itself.
void RowListView::ShowCurrent() {
    const QModelIndex current = model_->index(static_cast<int>(Rows()->Current()), 0);
    if (current == currentIndex()) return;
    const bool scrolls = hasAutoScroll();
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(current, kNothing);
    setAutoScroll(scrolls);
}

void RowListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    const auto position = static_cast<std::size_t>(current.row());
    if (Rows() && position < Rows()->Count()) Rows()->SetCurrent(position);
}

// The only place where mouse and keys become selection.
void RowListView::Obey(int first, int last, Command command) {
    if (!Rows()) return;
    const bool clears = command & Selection::Clear;
    const bool selects = command & (Selection::Select | Selection::Deselect | Selection::Toggle);
    if (first < 0) {
        if (clears) Rows()->SelectAll(RowList::Flag::Off);
    } else if (command & Selection::Current) {
        ObeyRange(first, last, command);
    } else {
        const auto from = static_cast<std::size_t>(first);
        const auto to = static_cast<std::size_t>(last);
        if (clears && selects)
            Rows()->SelectOnly(from, to);
        else if (clears)
            Rows()->SelectAll(RowList::Flag::Off);
        else if (selects)
            Rows()->Select(from, to, FlagOf(command));
        anchor_ = model_->index(last, 0);
    }
}

void RowListView::ObeyRange(int first, int last, Command command) {
    if (!anchor_.isValid()) anchor_ = currentIndex().isValid() ? currentIndex() : model_->index(last, 0);
    Rows()->RunRange(static_cast<std::size_t>(std::min(anchor_.row(), first)),
                     static_cast<std::size_t>(std::max(anchor_.row(), last)), FlagOf(command),
                     command & Selection::Clear);
}

// Mouse and keys have made the row that they mean the current one before they come here.
void RowListView::setSelection(const QRect&, Command command) {
    const int row = currentIndex().row();
    if (command != kNothing && row >= 0) Obey(row, row, command);
}

RowListView::Command RowListView::selectionCommand(const QModelIndex& index, const QEvent* event) const {
    if (!event || !event->isInputEvent()) return kOnly; // type-ahead: a held Shift does not count
    const Qt::KeyboardModifiers modifiers = static_cast<const QInputEvent*>(event)->modifiers();
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: // a press where the first one was elsewhere
        return PressCommand(index.row(), *static_cast<const QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        return ReleaseCommand(index.row(), *static_cast<const QMouseEvent*>(event));
    case QEvent::KeyPress:
        if (HasShift(modifiers)) return RangeCommand(modifiers);
        return HasControl(modifiers) ? kNothing : kOnly;
    default:
        return kOnly;
    }
}

RowListView::Command RowListView::PressCommand(int row, const QMouseEvent& event) const {
    if (row < 0) return kNothing; // BeginPress has cleared already
    const bool control = HasControl(event.modifiers());
    const bool shift = HasShift(event.modifiers());
    const bool selected = IsSelected(row);
    if (event.button() != Qt::LeftButton) return selected || control || shift ? kNothing : kOnly;
    if (shift) return RangeCommand(event.modifiers());
    if (control) return (selected ? Selection::Deselect : Selection::Select) | Selection::Rows;
    return selected ? kNothing : kOnly;
}

// A press on one of several selected rows may begin a drag; without one it leaves that row alone selected.
RowListView::Command RowListView::ReleaseCommand(int row, const QMouseEvent& event) const {
    const bool plain =
        event.button() == Qt::LeftButton && !HasControl(event.modifiers()) && !HasShift(event.modifiers());
    const bool clicked = row == pressedRow_ && state() != DragSelectingState;
    return plain && clicked && IsSelected(row) ? kOnly : kNothing;
}

RowListView::Command RowListView::DragCommand(Qt::KeyboardModifiers modifiers) const {
    if (HasShift(modifiers) || !HasControl(modifiers)) return RangeCommand(modifiers);
    return (dragSelects_ ? Selection::Select : Selection::Deselect) | Selection::Current | Selection::Rows;
}

void RowListView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
    QStyleOptionViewItem rowOption(option);
    rowOption.state.setFlag(QStyle::State_Selected, IsSelected(index.row()));
    QTreeView::drawRow(painter, rowOption, index);
}

void RowListView::mousePressEvent(QMouseEvent* event) {
    if (model_) BeginPress(*event);
    QTreeView::mousePressEvent(event);
    emit UserActed();
}

void RowListView::BeginPress(const QMouseEvent& event) {
    EndDrag();
    Rows()->EndRange();
    const QModelIndex index = indexAt(event.pos());
    pressed_ = event.pos();
    pressedRow_ = index.row();
    if (index.isValid()) {
        dragSelects_ = !IsSelected(index.row());
        if (!HasShift(event.modifiers())) anchor_ = index.siblingAtColumn(0);
        return;
    }
    if (!HasControl(event.modifiers()) && !HasShift(event.modifiers())) Rows()->SelectAll(RowList::Flag::Off);
    banding_ = event.button() == Qt::LeftButton;
    bandFrom_ = event.pos() + Offset();
}

void RowListView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) return QTreeView::mouseMoveEvent(event); // hovering
    if (!event->buttons().testFlag(Qt::LeftButton) || !model_ || (!banding_ && pressedRow_ < 0) ||
        state() == EditingState)
        return;
    const bool began = (event->pos() - pressed_).manhattanLength() >= QApplication::startDragDistance();
    if (state() != DragSelectingState && !began) return;
    setState(DragSelectingState);
    DragTo(event->pos(), event->modifiers());
}

void RowListView::DragTo(QPoint place, Qt::KeyboardModifiers modifiers) {
    const int height = viewport()->height();
    dragged_ = place;
    dragModifiers_ = modifiers;
    if (place.y() >= 0 && place.y() < height)
        scroll_.stop();
    else if (!scroll_.isActive())
        scroll_.start(kScrollMs, this);
    if (banding_) return BandTo(place, modifiers);
    const int row = RowAt(std::clamp(place.y(), 0, std::max(0, height - 1)));
    if (row < 0) return;
    selectionModel()->setCurrentIndex(model_->index(row, 0), kNothing);
    Obey(row, row, DragCommand(modifiers));
}

void RowListView::BandTo(QPoint place, Qt::KeyboardModifiers modifiers) {
    const QRect rect = QRect(bandFrom_, place + Offset()).normalized(); // as bandFrom_
    if (!band_) band_ = new QRubberBand(QRubberBand::Rectangle, viewport());
    band_->setGeometry(rect.translated(-Offset()));
    band_->show();
    const int height = std::max(1, RowHeight());
    const bool control = HasControl(modifiers);
    const bool misses = rect.left() >= header()->length();
    Rows()->RunRange(misses ? RowList::kNone : static_cast<std::size_t>(std::max(0, rect.top()) / height),
                     static_cast<std::size_t>(std::max(0, rect.bottom()) / height),
                     control ? RowList::Flag::Flip : RowList::Flag::On, !control && !HasShift(modifiers));
}

// The pointer may stand still outside the list.
void RowListView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != scroll_.timerId()) return QTreeView::timerEvent(event);
    if (!model_) return EndDrag();
    const int below = dragged_.y() - viewport()->height() + 1;
    const int outside = dragged_.y() < 0 ? dragged_.y() : below;
    const int step = outside / kPixelsPerStep + (outside < 0 ? -1 : 1);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + step);
    DragTo(dragged_, dragModifiers_);
}

void RowListView::EndDrag() {
    scroll_.stop();
    if (!banding_) return;
    banding_ = false;
    if (band_) band_->hide();
    if (Rows()) Rows()->EndRange();
}

void RowListView::mouseReleaseEvent(QMouseEvent* event) {
    EndDrag();
    QTreeView::mouseReleaseEvent(event);
    pressedRow_ = -1;
    emit UserActed();
}

void RowListView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QTreeView::mouseDoubleClickEvent(event);
    else
        mousePressEvent(event);
}

// The release may go elsewhere.
void RowListView::focusOutEvent(QFocusEvent* event) {
    EndDrag();
    QTreeView::focusOutEvent(event);
}

void RowListView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && currentIndex().isValid()) {
        PressSpace(event->modifiers());
        event->accept();
    } else {
        if (HasShift(event->modifiers()) && !anchor_.isValid()) anchor_ = currentIndex();
        QTreeView::keyPressEvent(event);
    }
    emit UserActed();
}

void RowListView::PressSpace(Qt::KeyboardModifiers modifiers) {
    const int row = currentIndex().row();
    const bool typing =
        sinceTyped_.isValid() && sinceTyped_.elapsed() <= QApplication::keyboardInputInterval();
    if (HasControl(modifiers))
        Obey(row, row, Selection::Toggle);
    else if (HasShift(modifiers))
        Obey(row, row, RangeCommand(modifiers));
    else if (typing)
        keyboardSearch(QStringLiteral(" "));
    else if (currentIndex().flags().testFlag(Qt::ItemIsUserCheckable))
        model_->setData(currentIndex(),
                        Rows()->At(static_cast<std::size_t>(row)).Checked ? Qt::Unchecked : Qt::Checked,
                        Qt::CheckStateRole);
    else
        Obey(row, row, Selection::Select);
}

void RowListView::TellToggled(int row) {
    viewport()->update();
    if (!QAccessible::isActive()) return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    event.setChild((row + 1) * model_->columnCount());
    QAccessible::updateAccessibility(&event);
}

void RowListView::keyboardSearch(const QString& text) {
    sinceTyped_.start();
    QTreeView::keyboardSearch(text);
}

void RowListView::selectAll() {
    if (Rows()) Rows()->SelectAll(RowList::Flag::On);
}

// The text may be scrolled away sideways.
bool RowListView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool asked = trigger == AllEditTriggers || (trigger & editTriggers());
    if (asked && index.flags().testFlag(Qt::ItemIsEditable)) {
        executeDelayedItemsLayout();
        QTreeView::scrollTo(index);
    }
    return QTreeView::edit(index, trigger, event);
}

// Tab takes what was typed, and does not walk on to the next row.
void RowListView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const auto* const box = qobject_cast<const QLineEdit*>(editor);
    lastEdit_ = box && box->isModified() ? EditEnd::Left : EditEnd::LeftUnchanged;
    if (hint == QAbstractItemDelegate::SubmitModelCache) lastEdit_ = EditEnd::Entered;
    const bool walks =
        hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    QTreeView::closeEditor(editor, walks ? QAbstractItemDelegate::NoHint : hint);
}

void RowListView::EditRow(int row) {
    if (!model_) return;
    setFocus();
    QTreeView::edit(model_->index(row, 0));
}

void RowListView::CloseEditor() {
    if (state() != EditingState) return;
    auto* const editor = viewport()->findChild<QLineEdit*>();
    if (!editor) return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

// A far row's height would be searched for from row to row.
int RowListView::RowHeight() const {
    const int count = model_ ? model_->rowCount() : 0;
    if (count == 0) return fontMetrics().height();
    return rowHeight(model_->index(std::clamp(verticalScrollBar()->value(), 0, count - 1), 0));
}

// The nearest row; -1 in an empty list.
int RowListView::RowAt(int y) const {
    const int row = verticalScrollBar()->value() + y / std::max(1, RowHeight());
    return std::min(row, model_->rowCount() - 1);
}

QPoint RowListView::Offset() const { return {header()->offset(), verticalOffset()}; }

int RowListView::VisibleRows(bool clamp) const {
    const int rows = viewport()->height() / std::max(1, RowHeight());
    return clamp ? std::min(rows, Rows() ? static_cast<int>(Rows()->Count()) : 0) : rows;
}

void RowListView::EnsureVisible(std::size_t row) {
    if (!model_) return;
    model_->Flush();
    scrollTo(model_->index(static_cast<int>(row), 0));
}

void RowListView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid()) return;
    executeDelayedItemsLayout();
    QScrollBar* const bar = verticalScrollBar();
    const int page = std::max(1, bar->pageStep());
    const int row = index.row();
    if (hint == PositionAtCenter)
        bar->setValue(row - page / 2);
    else if (hint == PositionAtTop || row < bar->value())
        bar->setValue(row);
    else if (hint == PositionAtBottom || row >= bar->value() + page)
        bar->setValue(row - page + 1);
}

} // namespace calyvox
