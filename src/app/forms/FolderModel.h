// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemModel>
#include <QIcon>

#include <memory>
#include <string>
#include <vector>

namespace calyvox {

/// The host's folders below one row, "\", the host's root. A folder is read when it is first opened; until
/// then it passes for one that has sub-folders. One that cannot be read has none. Paths are inside paths, the
/// root's is empty.
class FolderModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit FolderModel(QObject* parent = nullptr);
    ~FolderModel() override;

    QModelIndex Root() const;
    std::string Path(const QModelIndex& index) const;
    /// Goes down the path as far as there are such folders and returns the last; whole is whether that is all
    /// of it. Reads what has not been read, and again what differs from the disk on the way.
    QModelIndex Reach(const std::string& path, bool& whole);
    /// Reads one folder again, what lies deeper stays as it is known.
    void Reread(const QModelIndex& index);
    /// Reads again all that was read.
    void RereadAll();

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

signals:
    /// The user entered a name for a folder; nothing has changed yet.
    void NameEdited(const std::string& path, const QString& name);

private:
    struct Node;

    static Node& NodeOf(const QModelIndex& index);
    QModelIndex IndexOf(const Node& node) const;
    QModelIndex Child(const QModelIndex& folder, const std::string& name) const;
    void RereadBelow(const Node& folder);
    void Remove(Node& folder, std::size_t first, std::size_t end);
    void Insert(Node& folder, std::size_t at, std::vector<std::string> names);

    std::unique_ptr<Node> root_;
    QIcon icon_;
};

} // namespace calyvox
