// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/FolderModel.h"

#include "app/forms/Dialogs.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"
#include "platform/HostPath.h"

#include <QApplication>
#include <QStyle>
#include <QTextDocument>

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace calyvox {

struct FolderModel::Node {
    std::string Name;
    Node* Parent = nullptr;
    int Row = 0; // in the parent
    bool Read = false;
    std::vector<std::unique_ptr<Node>> Children;
};

namespace {

// Sorted, each once.
std::vector<std::string> SubFolders(const std::string& path) {
    std::vector<std::pair<std::string, std::string>> keyed;
    Skip([&] {
        for (FileSystem::Entry& entry : FileSystem::ListFolder(path))
            if (entry.Folder) keyed.emplace_back(HostPath::Upper(entry.Name), std::move(entry.Name));
    });
    std::sort(keyed.begin(), keyed.end());
    keyed.erase(std::unique(keyed.begin(), keyed.end()), keyed.end());
    std::vector<std::string> names;
    names.reserve(keyed.size());
    for (auto& [key, name] : keyed)
        names.push_back(std::move(name));
    return names;
}

std::vector<std::string> Components(const std::string& path) {
    std::vector<std::string> names;
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find('\\', begin), path.size());
        if (end > begin) names.push_back(path.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

// A tooltip takes what looks like markup for it.
QString PlainToolTip(const QString& text) {
    if (!Qt::mightBeRichText(text)) return text;
    return QLatin1String("<p style='white-space:pre'>") + text.toHtmlEscaped();
}

} // namespace

FolderModel::FolderModel(QObject* parent)
    : QAbstractItemModel(parent), root_(std::make_unique<Node>()),
      icon_(QApplication::style()->standardIcon(QStyle::SP_DirIcon)) {}

FolderModel::~FolderModel() = default;

FolderModel::Node& FolderModel::NodeOf(const QModelIndex& index) {
    return *static_cast<Node*>(index.internalPointer());
}

QModelIndex FolderModel::IndexOf(const Node& node) const { return createIndex(node.Row, 0, &node); }

QModelIndex FolderModel::Root() const { return IndexOf(*root_); }

std::string FolderModel::Path(const QModelIndex& index) const {
    std::string path;
    if (!index.isValid()) return path;
    for (const Node* node = &NodeOf(index); node != root_.get(); node = node->Parent)
        path.insert(0, "\\" + node->Name);
    return path;
}

QModelIndex FolderModel::Child(const QModelIndex& folder, const std::string& name) const {
    for (const auto& child : NodeOf(folder).Children)
        if (child->Name == name) return IndexOf(*child);
    return {};
}

QModelIndex FolderModel::Reach(const std::string& path, bool& whole) {
    QModelIndex at = Root();
    whole = path.empty() || path.front() == '\\';
    if (!whole) return at;
    for (const std::string& name : Components(path)) {
        QModelIndex next = Child(at, name);
        if (next.isValid() != FileSystem::FolderExists(Path(at) + "\\" + name)) {
            Reread(at);
            next = Child(at, name);
        }
        whole = next.isValid();
        if (!whole) break;
        at = next;
    }
    return at;
}

void FolderModel::Remove(Node& folder, std::size_t first, std::size_t end) {
    auto& children = folder.Children;
    beginRemoveRows(IndexOf(folder), static_cast<int>(first), static_cast<int>(end) - 1);
    children.erase(children.begin() + static_cast<std::ptrdiff_t>(first),
                   children.begin() + static_cast<std::ptrdiff_t>(end));
    for (std::size_t row = first; row < children.size(); ++row)
        children[row]->Row = static_cast<int>(row);
    endRemoveRows();
}

void FolderModel::Insert(Node& folder, std::size_t at, std::vector<std::string> names) {
    std::vector<std::unique_ptr<Node>> nodes;
    for (std::string& name : names) {
        nodes.push_back(std::make_unique<Node>());
        nodes.back()->Name = std::move(name);
        nodes.back()->Parent = &folder;
    }
    auto& children = folder.Children;
    beginInsertRows(IndexOf(folder), static_cast<int>(at), static_cast<int>(at + nodes.size()) - 1);
    children.insert(children.begin() + static_cast<std::ptrdiff_t>(at),
                    std::make_move_iterator(nodes.begin()), std::make_move_iterator(nodes.end()));
    for (std::size_t row = at; row < children.size(); ++row)
        children[row]->Row = static_cast<int>(row);
    endInsertRows();
}

void FolderModel::Reread(const QModelIndex& index) {
    Node& folder = NodeOf(index);
    folder.Read = true;
    const std::vector<std::string> names = SubFolders(Path(index));
    const std::unordered_set<std::string> present(names.begin(), names.end());
    const auto& children = folder.Children;
    for (std::size_t end = children.size(); end > 0;) {
        std::size_t first = end;
        while (first > 0 && present.count(children[first - 1]->Name) == 0)
            --first;
        if (first < end) Remove(folder, first, end);
        end = first == 0 ? 0 : first - 1;
    }
    // What is left stands in the order of the names.
    for (std::size_t row = 0; row < names.size(); ++row) {
        std::vector<std::string> run;
        while (row + run.size() < names.size() &&
               (row == children.size() || children[row]->Name != names[row + run.size()]))
            run.push_back(names[row + run.size()]);
        if (run.empty()) continue;
        const std::size_t count = run.size();
        Insert(folder, row, std::move(run));
        row += count - 1;
    }
}

void FolderModel::RereadBelow(const Node& folder) {
    if (!folder.Read) return;
    Reread(IndexOf(folder));
    for (const auto& child : folder.Children)
        RereadBelow(*child);
}

void FolderModel::RereadAll() { RereadBelow(*root_); }

QModelIndex FolderModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent) || column != 0) return {};
    return parent.isValid() ? IndexOf(*NodeOf(parent).Children[static_cast<std::size_t>(row)]) : Root();
}

QModelIndex FolderModel::parent(const QModelIndex& index) const {
    if (!index.isValid() || !NodeOf(index).Parent) return {};
    return IndexOf(*NodeOf(index).Parent);
}

int FolderModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? static_cast<int>(NodeOf(parent).Children.size()) : 1;
}

int FolderModel::columnCount(const QModelIndex&) const { return 1; }

bool FolderModel::hasChildren(const QModelIndex& parent) const {
    return canFetchMore(parent) || rowCount(parent) > 0;
}

bool FolderModel::canFetchMore(const QModelIndex& parent) const {
    return parent.isValid() && !NodeOf(parent).Read;
}

void FolderModel::fetchMore(const QModelIndex& parent) {
    if (canFetchMore(parent)) Reread(parent);
}

QVariant FolderModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    switch (role) {
    case Qt::DisplayRole:
        return Dialogs::NameText(index == Root() ? "\\" : NodeOf(index).Name);
    case Qt::ToolTipRole:
        return PlainToolTip(Dialogs::NameText(index == Root() ? "\\" : Path(index)));
    case Qt::DecorationRole:
        return icon_;
    case Qt::EditRole:
        return Dialogs::NameEditText(NodeOf(index).Name);
    default:
        return {};
    }
}

Qt::ItemFlags FolderModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    return index.isValid() && index != Root() ? flags | Qt::ItemIsEditable : flags;
}

bool FolderModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid()) return false;
    emit NameEdited(Path(index), value.toString());
    return true;
}

} // namespace calyvox
