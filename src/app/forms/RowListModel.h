// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/RowList.h"

#include <QAbstractTableModel>
#include <QBasicTimer>
#include <QStringList>

namespace calyvox {

/// Shows the rows of a RowList in a view; cells become text only when painted. What changes in the list is
/// told to the view at most every 40 ms and at Flush: a view lays out all its rows after each change that it
/// hears of. It is the list's listener while it lives, and the list must outlive it.
class RowListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    RowListModel(RowList& rows, QStringList titles, QObject* parent = nullptr);
    ~RowListModel() override;

    /// Tells the view at once.
    void Flush();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void OnChange(std::size_t first, std::size_t last);
    void OnReset();

    RowList& rows_;
    QStringList titles_;
    int shown_ = 0; // rows that the view knows of
    int firstChanged_ = 0;
    int lastChanged_ = -1;
    QBasicTimer flush_;
};

} // namespace calyvox
