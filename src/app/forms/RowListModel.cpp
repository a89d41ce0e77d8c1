// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/RowListModel.h"

#include "app/forms/Dialogs.h"
#include "platform/CodePage.h"
#include "platform/HostPath.h"

#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QTimerEvent>

#include <algorithm>

namespace calyvox {

namespace {

constexpr int kFlushMs = 40;
constexpr std::size_t kMostShown = 1000; // bytes of a cell; a picture may be one
constexpr int kRowRoom = 6;              // pixels between the texts of two rows

} // namespace

RowListModel::RowListModel(RowList& rows, QStringList titles, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows), titles_(std::move(titles)),
      shown_(static_cast<int>(rows.Count())) {
    RowList::Listener listener;
    listener.Changed = [this](std::size_t first, std::size_t last) { OnChange(first, last); };
    listener.Reset = [this] { OnReset(); };
    listener.Reordered = [this](const std::vector<std::size_t>& old) { OnReorder(old); };
    listener.SelectionChanged = [this](std::size_t first, std::size_t last) {
        emit RowsSelectionChanged(static_cast<int>(first), static_cast<int>(last));
    };
    listener.CurrentChanged = [this] { emit CurrentRowChanged(); };
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

// The open editor, the current index and whatever else holds an index goes with its row.
void RowListModel::OnReorder(const std::vector<std::size_t>& old) {
    Flush();
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList from = persistentIndexList();
    std::vector<int> now(old.size());
    for (std::size_t i = 0; i < old.size(); ++i)
        now[old[i]] = static_cast<int>(i);
    QModelIndexList to;
    for (const QModelIndex& one : from)
        to << index(now[static_cast<std::size_t>(one.row())], one.column());
    changePersistentIndexList(from, to);
    emit layoutChanged({}, VerticalSortHint);
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

void RowListModel::SetAlignment(int column, Qt::Alignment alignment) {
    alignments_[column] = alignment;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

QVariant RowListModel::data(const QModelIndex& index, int role) const {
    // A list on hold may have fewer rows than were told.
    if (!index.isValid() || static_cast<std::size_t>(index.row()) >= rows_.Count()) return {};
    if (role == Qt::TextAlignmentRole) return headerData(index.column(), Qt::Horizontal, role);
    const RowList::Row& row = rows_.At(static_cast<std::size_t>(index.row()));
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return Dialogs::NameText(
            RowList::Cell(row, static_cast<std::size_t>(index.column())).substr(0, kMostShown));
    if (role == Qt::EditRole)
        return Dialogs::NameEditText(RowList::Cell(row, static_cast<std::size_t>(index.column())));
    if (role == Qt::SizeHintRole) return QSize(0, QFontMetrics(QGuiApplication::font()).height() + kRowRoom);
    if (role == Qt::CheckStateRole && checkable_ && index.column() == 0)
        return row.Checked ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::FontRole && row.Bold) {
        QFont font;
        font.setBold(true);
        return font;
    }
    return {};
}

QVariant RowListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole && alignments_.contains(section))
        return static_cast<int>(alignments_[section] | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? titles_.value(section) : QVariant();
}

Qt::ItemFlags RowListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    flags.setFlag(Qt::ItemIsEditable, editable_ && index.column() == 0);
    flags.setFlag(Qt::ItemIsUserCheckable, checkable_ && index.column() == 0);
    return flags;
}

bool RowListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role == Qt::CheckStateRole && index.flags().testFlag(Qt::ItemIsUserCheckable)) {
        rows_.SetChecked(static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked);
        emit CheckToggled(index.row());
        return true;
    }
    if (role != Qt::EditRole || !index.flags().testFlag(Qt::ItemIsEditable)) return false;
    emit TextEdited(index.row(), value.toString());
    return true;
}

// Most rows are told apart by their first byte, and become no text.
bool RowListModel::BeginsWith(int row, const QString& beginning) const {
    const std::string& text = rows_.At(static_cast<std::size_t>(row)).Text;
    if (text.empty()) return false;
    const char32_t first = QChar::toCaseFolded(CodePage::ToCodePoint(text.front()));
    if (text.front() != HostPath::kEscapeLead && first != beginning.front().toCaseFolded().unicode())
        return false;
    const auto enough = static_cast<std::size_t>(beginning.size()) * HostPath::kEscapeLength;
    return Dialogs::NameText(text.substr(0, enough)).startsWith(beginning, Qt::CaseInsensitive);
}

QModelIndexList RowListModel::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                    Qt::MatchFlags flags) const {
    const QString beginning = value.toString();
    if (role != Qt::DisplayRole || hits != 1 || !flags.testFlag(Qt::MatchStartsWith) || beginning.isEmpty())
        return QAbstractTableModel::match(start, role, value, hits, flags);
    const int count = std::min(rowCount(), static_cast<int>(rows_.Count()));
    for (int i = 0; i < count; ++i) {
        const int row = (start.row() + i) % count;
        if (BeginsWith(row, beginning)) return {index(row, start.column())};
    }
    return {};
}

} // namespace calyvox
