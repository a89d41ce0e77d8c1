// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/RowList.h"

#include <QAbstractTableModel>
#include <QBasicTimer>
#include <QHash>
#include <QStringList>

namespace calyvox {

/// Shows the rows of a RowList in a view; cells become text only when painted. What changes in the list is
/// told to the view at most every 40 ms and at Flush: a view lays out all its rows after each change that it
/// hears of. A new order, a reset and everything about selection and current row is told at once. It is the
/// list's listener while it lives, and the list must outlive it.
class RowListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    RowListModel(RowList& rows, QStringList titles, QObject* parent = nullptr);
    ~RowListModel() override;

    RowList& Rows() const { return rows_; }
    /// Tells the view at once.
    void Flush();
    /// The rows' texts can be edited; what the user entered goes to TextEdited and nowhere else.
    void SetEditable(bool editable) { editable_ = editable; }
    /// The rows have check boxes, which the user toggles.
    void SetCheckable(bool checkable) { checkable_ = checkable; }
    /// Of the cells and the title of a column; left where never set.
    void SetAlignment(int column, Qt::Alignment alignment);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Type-ahead, which asks for one hit by its beginning, looks at the rows' texts whatever the column.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

signals:
    /// See RowList::Listener.
    void RowsSelectionChanged(int first, int last);
    void CurrentRowChanged();
    void TextEdited(int row, const QString& text);
    void CheckToggled(int row);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void OnChange(std::size_t first, std::size_t last);
    void OnReset();
    void OnReorder(const std::vector<std::size_t>& old);
    bool BeginsWith(int row, const QString& beginning) const;

    RowList& rows_;
    QStringList titles_;
    QHash<int, Qt::Alignment> alignments_;
    bool editable_ = false;
    bool checkable_ = false;
    int shown_ = 0; // rows that the view knows of
    int firstChanged_ = 0;
    int lastChanged_ = -1;
    QBasicTimer flush_;
};

} // namespace calyvox
