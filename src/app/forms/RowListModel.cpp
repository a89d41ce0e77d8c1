// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/RowListModel.h"

#include "app/forms/Dialogs.h"

#include <QFont>
#include <QTimerEvent>

#include <algorithm>

namespace calyvox {

namespace {

constexpr int kFlushMs = 40;

} // namespace

RowListModel::RowListModel(RowList& rows, QStringList titles, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows), titles_(std::move(titles)),
      shown_(static_cast<int>(rows.Count())) {
    RowList::Listener listener;
    listener.Changed = [this](std::size_t first, std::size_t last) { OnChange(first, last); };
    listener.Reset = [this] { OnReset(); };
    rows_.SetListener(std::move(listener));
}

RowListModel::~RowListModel() { rows_.SetListener({}); }

void RowListModel::OnChange(std::size_t first, std::size_t last) {
    const bool none = firstChanged_ > lastChanged_;
    firstChanged_ = none ? static_cast<int>(first) : std::min(firstChanged_, static_cast<int>(first));
    lastChanged_ = std::max(lastChanged_, static_cast<int>(last));
    if (!flush_.isActive()) flush_.start(kFlushMs, this);
}

void RowListModel::OnReset() {
    flush_.stop();
    beginResetModel();
    shown_ = static_cast<int>(rows_.Count());
    firstChanged_ = 0;
    lastChanged_ = -1;
    endResetModel();
}

void RowListModel::Flush() {
    flush_.stop();
    const int count = static_cast<int>(rows_.Count());
    const int known = shown_;
    if (count > known) {
        beginInsertRows({}, known, count - 1);
        shown_ = count;
        endInsertRows();
    }
    if (firstChanged_ <= lastChanged_ && firstChanged_ < known)
        emit dataChanged(index(firstChanged_, 0),
                         index(std::min(lastChanged_, known - 1), columnCount() - 1));
    firstChanged_ = 0;
    lastChanged_ = -1;
}

void RowListModel::timerEvent(QTimerEvent* event) {
    if (event->timerId() == flush_.timerId())
        Flush();
    else
        QAbstractTableModel::timerEvent(event);
}

int RowListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_; }

int RowListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(titles_.size());
}

QVariant RowListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const RowList::Row& row = rows_.At(static_cast<std::size_t>(index.row()));
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return Dialogs::NameText(RowList::Cell(row, static_cast<std::size_t>(index.column())));
    if (role == Qt::FontRole && row.Bold) {
        QFont font;
        font.setBold(true);
        return font;
    }
    return {};
}

QVariant RowListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return titles_.value(section);
}

Qt::ItemFlags RowListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

} // namespace calyvox
