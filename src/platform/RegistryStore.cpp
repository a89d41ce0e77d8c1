// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/RegistryStore.h"

#include "platform/CodePage.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <deque>

namespace calyvox {

namespace {

constexpr int kBusyMilliseconds = 2000;

constexpr const char* kSchema = "CREATE TABLE keys ("
                                " path TEXT NOT NULL PRIMARY KEY COLLATE NOCASE,"
                                " parent TEXT COLLATE NOCASE REFERENCES keys (path) ON DELETE RESTRICT);"
                                "CREATE TABLE settings ("
                                " path TEXT NOT NULL COLLATE NOCASE REFERENCES keys (path) ON DELETE CASCADE,"
                                " name TEXT NOT NULL COLLATE NOCASE,"
                                " type INTEGER NOT NULL,"
                                " value,"
                                " position INTEGER PRIMARY KEY,"
                                " UNIQUE (path, name));"
                                "PRAGMA user_version = 1;";

// One SQL statement; parameters are bound from left to right and kept alive with it. A statement that
// could not be prepared gives its error at each step.
class Statement {
public:
    Statement(sqlite3* database, const char* sql)
        : error_(sqlite3_prepare_v2(database, sql, -1, &statement_, nullptr)) {}
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& Text(std::string_view text) {
        const std::string& kept = kept_.emplace_back(CodePage::ToUtf8(text));
        sqlite3_bind_text64(statement_, ++bound_, kept.data(), kept.size(), nullptr, SQLITE_UTF8);
        return *this;
    }
    Statement& Bytes(std::string_view bytes) {
        const std::string& kept = kept_.emplace_back(bytes);
        sqlite3_bind_blob64(statement_, ++bound_, kept.data(), kept.size(), nullptr);
        return *this;
    }
    Statement& Number(std::int64_t number) {
        sqlite3_bind_int64(statement_, ++bound_, number);
        return *this;
    }
    Statement& Null() {
        sqlite3_bind_null(statement_, ++bound_);
        return *this;
    }

    int Step() { return error_ == SQLITE_OK ? sqlite3_step(statement_) : error_; }

    int ColumnClass(int column) { return sqlite3_column_type(statement_, column); }
    std::int64_t ColumnNumber(int column) { return sqlite3_column_int64(statement_, column); }
    std::string ColumnText(int column) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
        return text == nullptr ? std::string() : CodePage::FromUtf8({text, ColumnSize(column)});
    }
    std::string ColumnBytes(int column) {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
        return bytes == nullptr ? std::string() : std::string(bytes, ColumnSize(column));
    }

private:
    std::size_t ColumnSize(int column) {
        return static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
    }

    sqlite3_stmt* statement_ = nullptr;
    int error_;
    int bound_ = 0;
    std::deque<std::string> kept_;
};

RegistryStore::Status StatusOf(int result) {
    const bool worked = result == SQLITE_OK || result == SQLITE_DONE || result == SQLITE_ROW;
    return worked ? RegistryStore::kSuccess : RegistryStore::kAccessDenied;
}

int Execute(sqlite3* database, const char* sql) {
    return sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
}

int MakeTables(sqlite3* database) {
    int result = Execute(database, kSchema);
    for (const RegistryStore::Root& root : RegistryStore::kRoots) {
        if (result != SQLITE_OK) return result;
        const int step = Statement(database, "INSERT INTO keys (path) VALUES (?)").Text(root.LongName).Step();
        result = step == SQLITE_DONE ? SQLITE_OK : step;
    }
    return result;
}

// Tables that are there already, made by another process just now perhaps, are left alone.
int EnsureTables(sqlite3* database) {
    const auto isMade = [&] {
        Statement version(database, "PRAGMA user_version");
        return version.Step() == SQLITE_ROW && version.ColumnNumber(0) > 0;
    };
    if (isMade()) return SQLITE_OK;
    int result = Execute(database, "BEGIN IMMEDIATE");
    if (result != SQLITE_OK) return result;
    if (!isMade()) result = MakeTables(database);
    if (result == SQLITE_OK) result = Execute(database, "COMMIT");
    if (result != SQLITE_OK) Execute(database, "ROLLBACK");
    return result;
}

int Check(sqlite3* database) {
    Statement check(database, "PRAGMA quick_check(1)");
    const int result = check.Step();
    if (result != SQLITE_ROW) return result;
    return check.ColumnText(0) == "ok" ? SQLITE_OK : SQLITE_CORRUPT;
}

// An SQLite result code. The connection has to be closed in any case.
int Connect(const std::string& file, bool readOnly, sqlite3*& database) {
    const int flags = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    int result = sqlite3_open_v2(file.c_str(), &database, flags, nullptr);
    if (result != SQLITE_OK) return result;
    sqlite3_busy_timeout(database, kBusyMilliseconds);
    result = Check(database);
    if (result != SQLITE_OK || readOnly) return result;
    result = Execute(database, "PRAGMA journal_mode = DELETE; PRAGMA foreign_keys = ON;");
    return result == SQLITE_OK ? EnsureTables(database) : result;
}

// Missing folders are private to the user. True if files can be made in the folder.
bool MakeFolder(const std::string& folder) {
    std::size_t end = 0;
    do {
        end = folder.find('/', end + 1);
        ::mkdir(folder.substr(0, end).c_str(), 0700);
    } while (end != std::string::npos);
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

bool IsReadOnly(const std::string& file) {
    struct stat status {};
    return ::stat(file.c_str(), &status) == 0 && (status.st_mode & S_IWUSR) == 0;
}

// The journals go along: left behind they would be played back into the fresh file.
bool MoveAside(const std::string& file) {
    std::string aside = file + ".corrupt";
    struct stat status {};
    for (int number = 2; ::lstat(aside.c_str(), &status) == 0; ++number)
        aside = file + ".corrupt." + std::to_string(number);
    if (::rename(file.c_str(), aside.c_str()) != 0) return false;
    for (const char* journal : {"-journal", "-wal", "-shm"})
        ::rename((file + journal).c_str(), (aside + journal).c_str());
    std::fprintf(stderr, "calyvox: the settings in %s were damaged and are now %s\n", file.c_str(),
                 aside.c_str());
    return true;
}

std::string Join(const std::string& path, std::string_view subKey) {
    if (!subKey.empty() && subKey.back() == '\\') subKey.remove_suffix(1);
    return subKey.empty() ? path : path + '\\' + std::string(subKey);
}

// What the store itself knows of file types. A key's value without a name is there only for ".mp3".
constexpr std::string_view kClasses = "HKEY_CLASSES_ROOT";
constexpr std::string_view kMp3Class = "HKEY_CLASSES_ROOT\\.mp3";
constexpr std::string_view kMp3Type = "mp3file";
constexpr std::string_view kClassKeys[] = {kClasses, kMp3Class, "HKEY_CLASSES_ROOT\\mp3file",
                                           "HKEY_CLASSES_ROOT\\mp3file\\shell",
                                           "HKEY_CLASSES_ROOT\\mp3file\\shell\\Open"};

bool IsClass(std::string_view path) {
    return CodePage::EqualNoCase(path.substr(0, kClasses.size()), kClasses) &&
           (path.size() == kClasses.size() || path[kClasses.size()] == '\\');
}

RegistryStore::Status OpenClass(std::string_view path, RegistryStore::Key& key) {
    for (const std::string_view one : kClassKeys) {
        if (!CodePage::EqualNoCase(one, path)) continue;
        key.Path = one;
        return RegistryStore::kSuccess;
    }
    return RegistryStore::kNotFound;
}

RegistryStore::Status EnumerateClasses(std::string_view parent, std::size_t index, std::string& name) {
    for (const std::string_view one : kClassKeys) {
        const std::size_t last = one.rfind('\\');
        if (last == std::string_view::npos || one.substr(0, last) != parent || index-- > 0) continue;
        name = one.substr(last + 1);
        return RegistryStore::kSuccess;
    }
    return RegistryStore::kNoMoreItems;
}

bool IsText(std::uint32_t type) {
    return type == RegistryStore::kText || type == RegistryStore::kExpandableText;
}

std::string ColumnData(Statement& row, int column, std::uint32_t type) {
    const int storage = row.ColumnClass(column);
    if (storage == SQLITE_NULL) return {};
    if (storage != SQLITE_BLOB && IsText(type)) return row.ColumnText(column) + '\0';
    if (storage != SQLITE_BLOB && type == RegistryStore::kNumber)
        return RegistryStore::NumberBytes(static_cast<std::int32_t>(row.ColumnNumber(column)));
    return row.ColumnBytes(column);
}

void BindData(Statement& statement, std::uint32_t type, std::string_view data) {
    if (data.empty()) {
        statement.Null();
    } else if (IsText(type)) {
        if (data.back() == '\0') data.remove_suffix(1);
        statement.Text(data);
    } else if (type == RegistryStore::kNumber && data.size() == 4) {
        statement.Number(RegistryStore::NumberOf(data));
    } else {
        statement.Bytes(data);
    }
}

} // namespace

RegistryStore::RegistryStore(const std::string& file) : database_(nullptr, sqlite3_close) {
    if (OpenFile(file)) return;
    std::fprintf(stderr,
                 "calyvox: no settings file can be kept%s%s; settings last until the end of the program\n",
                 file.empty() ? "" : " at ", file.c_str());
    sqlite3* database = nullptr;
    Connect(":memory:", false, database);
    database_.reset(database);
}

RegistryStore::~RegistryStore() = default;

RegistryStore& RegistryStore::Get() {
    static RegistryStore store(DefaultFile());
    return store;
}

std::string RegistryStore::DefaultFile() {
    const auto absolute = [](const char* variable) {
        const char* path = std::getenv(variable);
        return path != nullptr && path[0] == '/' ? std::string(path) : std::string();
    };
    std::string folder = absolute("XDG_CONFIG_HOME");
    if (folder.empty()) {
        folder = absolute("HOME");
        if (folder.empty()) return {};
        folder += "/.config";
    }
    return folder + "/calyvox/settings.db";
}

bool RegistryStore::OpenFile(const std::string& file) {
    const std::size_t slash = file.rfind('/');
    if (slash == std::string::npos || !MakeFolder(file.substr(0, slash))) return false;
    const auto connect = [&] {
        sqlite3* database = nullptr;
        const int result = Connect(file, IsReadOnly(file), database);
        database_.reset(database);
        return result & 0xFF;
    };
    int result = connect();
    if (result == SQLITE_CORRUPT || result == SQLITE_NOTADB) {
        database_.reset();
        if (!MoveAside(file)) return false;
        result = connect();
    }
    return result == SQLITE_OK;
}

std::string RegistryStore::NumberBytes(std::int32_t number) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>((static_cast<std::uint32_t>(number) >> shift) & 0xFF);
    return bytes;
}

std::int32_t RegistryStore::NumberOf(std::string_view bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < bytes.size() && i < 4; ++i)
        number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    return static_cast<std::int32_t>(number);
}

RegistryStore::Key RegistryStore::RootKey(std::uint32_t handle) {
    for (const Root& root : kRoots)
        if (root.Handle == handle) return {std::string(root.LongName)};
    return {};
}

RegistryStore::Status RegistryStore::OpenKey(const Key& parent, std::string_view subKey, Key& key) {
    const std::string path = Join(parent.Path, subKey);
    if (IsClass(path)) return OpenClass(path, key);
    const int result = Statement(database_.get(), "SELECT 1 FROM keys WHERE path = ?").Text(path).Step();
    if (result == SQLITE_DONE) return kNotFound;
    if (result != SQLITE_ROW || sqlite3_db_readonly(database_.get(), "main") != 0) return kAccessDenied;
    key.Path = path;
    return kSuccess;
}

RegistryStore::Status RegistryStore::CreateKey(const Key& parent, std::string_view subKey, Key& key) {
    const Status opened = OpenKey(parent, subKey, key);
    if (opened != kNotFound) return opened;
    const std::string path = Join(parent.Path, subKey);
    if (path.find("\\\\") != std::string::npos || path.back() == '\\') return kNotFound;
    if (RefusesWrites() || IsClass(path)) return kAccessDenied;
    Batch batch(*this);
    for (std::size_t end = parent.Path.size(); end != std::string::npos;) {
        const std::string above = path.substr(0, end);
        end = path.find('\\', end + 1);
        Statement insert(database_.get(), "INSERT OR IGNORE INTO keys (path, parent) VALUES (?, ?)");
        const int result = insert.Text(path.substr(0, end)).Text(above).Step();
        if (result != SQLITE_DONE) return StatusOf(result);
    }
    const Status status = batch.Commit();
    if (status == kSuccess) key.Path = path;
    return status;
}

RegistryStore::Status RegistryStore::DeleteKey(const Key& parent, std::string_view subKey) {
    const bool isRoot = Join({}, subKey).empty();
    if (RefusesWrites() || isRoot || IsClass(parent.Path)) return kAccessDenied;
    Statement remove(database_.get(), "DELETE FROM keys WHERE path = ?");
    const Status status = StatusOf(remove.Text(Join(parent.Path, subKey)).Step());
    if (status != kSuccess) return status;
    return sqlite3_changes(database_.get()) > 0 ? kSuccess : kNotFound;
}

RegistryStore::Status RegistryStore::EnumerateKeys(const Key& key, std::size_t index, std::string& name) {
    if (IsClass(key.Path)) return EnumerateClasses(key.Path, index, name);
    Statement select(database_.get(),
                     "SELECT path FROM keys WHERE parent = ? ORDER BY path LIMIT 1 OFFSET ?");
    const int result = select.Text(key.Path).Number(static_cast<std::int64_t>(index)).Step();
    if (result == SQLITE_DONE) return kNoMoreItems;
    if (result != SQLITE_ROW) return StatusOf(result);
    const std::string path = select.ColumnText(0);
    name = path.substr(path.rfind('\\') + 1);
    return kSuccess;
}

RegistryStore::Status RegistryStore::QueryValue(const Key& key, std::string_view name, std::size_t room,
                                                Value& value) {
    if (key.Path == kMp3Class && name.empty()) {
        value.Type = kText;
        value.Data = std::string(kMp3Type) + '\0';
    } else {
        Statement select(database_.get(), "SELECT type, value FROM settings WHERE path = ? AND name = ?");
        const int result = select.Text(key.Path).Text(name).Step();
        if (result == SQLITE_DONE) return kNotFound;
        if (result != SQLITE_ROW) return StatusOf(result);
        value.Type = static_cast<std::uint32_t>(select.ColumnNumber(0));
        value.Data = ColumnData(select, 1, value.Type);
    }
    value.Size = value.Data.size();
    if (value.Size <= room) return kSuccess;
    value.Data.clear();
    return kMoreData;
}

RegistryStore::Status RegistryStore::SetValue(const Key& key, std::string_view name, std::uint32_t type,
                                              std::string_view data) {
    if (RefusesWrites() || IsClass(key.Path)) return kAccessDenied;
    Statement insert(database_.get(), "INSERT INTO settings (path, name, type, value) VALUES (?, ?, ?, ?)"
                                      " ON CONFLICT (path, name) DO UPDATE SET type = excluded.type,"
                                      " value = excluded.value");
    insert.Text(key.Path).Text(name).Number(type);
    BindData(insert, type, data);
    return StatusOf(insert.Step());
}

RegistryStore::Status RegistryStore::DeleteValue(const Key& key, std::string_view name) {
    if (RefusesWrites() || IsClass(key.Path)) return kAccessDenied;
    Statement remove(database_.get(), "DELETE FROM settings WHERE path = ? AND name = ?");
    const Status status = StatusOf(remove.Text(key.Path).Text(name).Step());
    if (status != kSuccess) return status;
    return sqlite3_changes(database_.get()) > 0 ? kSuccess : kNotFound;
}

RegistryStore::Status RegistryStore::EnumerateValues(const Key& key, std::size_t index, std::string& name) {
    Statement select(database_.get(),
                     "SELECT name FROM settings WHERE path = ? ORDER BY position LIMIT 1 OFFSET ?");
    const int result = select.Text(key.Path).Number(static_cast<std::int64_t>(index)).Step();
    if (result == SQLITE_DONE) return kNoMoreItems;
    if (result != SQLITE_ROW) return StatusOf(result);
    name = select.ColumnText(0);
    return kSuccess;
}

// In a batch there is a transaction, unless it could not begin or SQLite itself has rolled it back.
bool RegistryStore::RefusesWrites() const {
    return batches_ > 0 && sqlite3_get_autocommit(database_.get()) != 0;
}

RegistryStore::Batch::Batch(RegistryStore& store) : store_(store), nested_(store.batches_ > 0) {
    if (!store_.RefusesWrites())
        open_ = Execute(store_.database_.get(), nested_ ? "SAVEPOINT batch" : "BEGIN IMMEDIATE") == SQLITE_OK;
    ++store_.batches_;
}

RegistryStore::Batch::~Batch() {
    if (committed_) return;
    if (open_) Execute(store_.database_.get(), nested_ ? "ROLLBACK TO batch; RELEASE batch" : "ROLLBACK");
    --store_.batches_;
}

RegistryStore::Status RegistryStore::Batch::Commit() {
    if (!open_ || store_.RefusesWrites()) return kAccessDenied;
    const int result = Execute(store_.database_.get(), nested_ ? "RELEASE batch" : "COMMIT");
    if (result != SQLITE_OK) return kAccessDenied;
    open_ = false;
    committed_ = true;
    --store_.batches_;
    return kSuccess;
}

} // namespace calyvox
