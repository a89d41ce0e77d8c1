// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/FolderView.h"

#include "app/forms/Dialogs.h"
#include "app/forms/FolderModel.h"
#include "platform/CodePage.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace calyvox {

namespace {

constexpr int kIndentation = 14; // pixels a level: paths are deep, the tree is narrow

} // namespace

// The current folder is the selected one, always. Whoever would change it leaves a wish; a weak one gives way
// to one that came before.
class FolderView::Selection : public QItemSelectionModel {
public:
    Selection(FolderView& view, QAbstractItemModel* model) : QItemSelectionModel(model, &view), view_(view) {}

    void Move(const QModelIndex& index) {
        QItemSelectionModel::setCurrentIndex(index, NoUpdate);
        QItemSelectionModel::select(QItemSelection(index, index), ClearAndSelect);
    }

    void setCurrentIndex(const QModelIndex& index, SelectionFlags) override { view_.Wish(index, false); }
    void select(const QModelIndex& index, SelectionFlags command) override {
        if (command & (Select | Toggle)) view_.Wish(index, true);
    }
    void select(const QItemSelection& selection, SelectionFlags command) override {
        const QModelIndexList all = selection.indexes();
        if (all.size() == 1) select(all.first(), command);
    }
    void clear() override {}
    void reset() override {}
    void clearCurrentIndex() override {}

private:
    FolderView& view_;
};

FolderView::FolderView(QWidget* parent)
    : QTreeView(parent), model_(new FolderModel(this)), selection_(new Selection(*this, model_)),
      question_([](const std::string&) { return true; }) {
    setModel(model_);
    delete selectionModel();
    setSelectionModel(selection_);
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    setUniformRowHeights(true);
    setIndentation(kIndentation);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setAutoScroll(false); // it would open what is closed
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        model_->fetchMore(index);
        if (model_->hasChildren(index)) return;
        collapse(index);
        scheduleDelayedItemsLayout(); // it loses its expander
    });
    // A closed folder takes over from those in it.
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        if (ClosedAbove(selection_->currentIndex()) == index) Wish(index, false);
    });
    selection_->Move(model_->Root());
}

std::string FolderView::Path() const { return model_->Path(selection_->currentIndex()); }

void FolderView::SetBeforeChange(std::function<bool(const std::string& path)> question) {
    question_ = std::move(question);
}

void FolderView::SetRename(std::function<bool(const std::string& path, const std::string& name)> rename) {
    rename_ = std::move(rename);
    setEditTriggers(EditKeyPressed);
    connect(model_, &FolderModel::NameEdited, this, [this](const std::string& path, const QString& name) {
        renamed_.emplace(path, Dialogs::NameBytes(name));
        QMetaObject::invokeMethod(this, &FolderView::Rename, Qt::QueuedConnection);
    });
}

void FolderView::CloseEditor() {
    auto* const editor = state() == EditingState ? viewport()->findChild<QLineEdit*>() : nullptr;
    if (editor) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
    Rename();
}

void FolderView::Rename() {
    if (!renamed_) return;
    const auto renamed = *std::exchange(renamed_, std::nullopt);
    const std::string& path = renamed.first;
    const std::string& name = renamed.second;
    const QPointer<FolderView> alive(this);
    if (!rename_(path, name) || !alive) return;
    const std::string parent = path.substr(0, path.rfind('\\'));
    const std::string now = parent + "\\" + CodePage::Trim(name);
    const std::string current = Path();
    const bool below = current == path || current.starts_with(path + "\\");
    Keep([&] {
        bool whole = false;
        model_->Reread(model_->Reach(parent, whole));
        ShowFolder(model_->Reach(below ? now + current.substr(path.size()) : current, whole));
    });
}

bool FolderView::SelectPath(const std::string& path) {
    wish_.reset();
    bool whole = false;
    Keep([&] { ShowFolder(model_->Reach(path, whole)); });
    return whole;
}

// Moves and opens what is closed above.
void FolderView::ShowFolder(const QModelIndex& index) {
    for (QModelIndex closed = ClosedAbove(index); closed.isValid(); closed = ClosedAbove(index))
        expand(closed);
    selection_->Move(index);
    scrolled_ = isVisible();
    scrollTo(index);
}

// The topmost closed folder above the index, invalid if the index can be seen.
QModelIndex FolderView::ClosedAbove(const QModelIndex& index) const {
    QModelIndex closed;
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
        if (!isExpanded(above)) closed = above;
    return closed;
}

// While the folders change, the view's own moves are no wishes.
void FolderView::Keep(const std::function<void()>& change) {
    const bool outer = std::exchange(keeping_, true);
    change();
    keeping_ = outer;
}

void FolderView::Refresh() {
    const std::string current = Path();
    const std::string top = model_->Path(indexAt({0, 0}));
    const int down = verticalScrollBar()->value();
    const int across = horizontalScrollBar()->value();
    Keep([&] {
        model_->RereadAll();
        bool whole = false;
        selection_->Move(model_->Reach(current, whole));
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(down);
        const QModelIndex first = model_->Reach(top, whole);
        if (whole && !ClosedAbove(first).isValid()) QTreeView::scrollTo(first, PositionAtTop);
        horizontalScrollBar()->setValue(across);
    });
}

void FolderView::Wish(const QModelIndex& index, bool weak) {
    if (asking_ || keeping_ || !index.isValid() || (weak && wish_)) return;
    if (!wish_) QMetaObject::invokeMethod(this, &FolderView::Ask, Qt::QueuedConnection);
    wish_ = WishedFolder{model_->Path(index), !byMouse_};
}

void FolderView::Ask() {
    if (asking_ || !wish_) return;
    const WishedFolder wish = *std::exchange(wish_, std::nullopt);
    if (wish.Path == Path()) return;
    const QPointer<FolderView> alive(this);
    asking_ = true;
    Answer(wish);
    if (alive) asking_ = false;
}

// After the question, and after the signal, the view may be gone.
void FolderView::Answer(const WishedFolder& wish) {
    if (!IsThere(wish.Path)) return;
    const QPointer<FolderView> alive(this);
    const auto question = question_;
    if ((question && !question(wish.Path)) || !alive || !IsThere(wish.Path)) return;
    Keep([&] {
        bool whole = false;
        const QModelIndex index = model_->Reach(wish.Path, whole);
        if (wish.Scroll || ClosedAbove(index).isValid())
            ShowFolder(index);
        else
            selection_->Move(index);
    });
    emit Changed(wish.Path);
}

// Drops the folder from the tree if it is gone, and what is gone with it.
bool FolderView::IsThere(const std::string& path) {
    const std::string current = Path();
    bool there = false;
    Keep([&] {
        model_->Reach(path, there);
        bool whole = false;
        selection_->Move(model_->Reach(current, whole));
    });
    return there;
}

void FolderView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const int across = horizontalScrollBar()->value();
    QTreeView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(across);
    // The whole name, or its beginning if there is no room for all of it.
    const int left = visualRect(index).left();
    const int hidden = left + sizeHintForIndex(index).width() - viewport()->width();
    horizontalScrollBar()->setValue(across + std::min(left - indentation(), std::max(hidden, 0)));
}

void FolderView::showEvent(QShowEvent* event) {
    QTreeView::showEvent(event);
    const QModelIndex current = selection_->currentIndex();
    if (!std::exchange(scrolled_, true) && !ClosedAbove(current).isValid()) scrollTo(current);
}

QModelIndex FolderView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex current = selection_->currentIndex();
    const QModelIndex closed = ClosedAbove(current);
    if (closed.isValid()) return closed;
    if (action != MoveLeft) return QTreeView::moveCursor(action, modifiers);
    if (!isExpanded(current)) return current.parent();
    collapse(current);
    return current;
}

QItemSelectionModel::SelectionFlags FolderView::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
    // The press has wished already.
    if (event && event->type() == QEvent::MouseButtonRelease) return QItemSelectionModel::NoUpdate;
    return QTreeView::selectionCommand(index, event);
}

void FolderView::keyPressEvent(QKeyEvent* event) {
    // Opening all that lies below would read the whole disk.
    if (event->key() == Qt::Key_Asterisk)
        expand(selection_->currentIndex());
    else
        QTreeView::keyPressEvent(event);
}

void FolderView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    byMouse_ = true;
    QTreeView::mousePressEvent(event);
    byMouse_ = false;
}

void FolderView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) QTreeView::mouseDoubleClickEvent(event);
}

void FolderView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) QTreeView::mouseMoveEvent(event);
}

} // namespace calyvox
