// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3; // NOLINT(readability-identifier-naming): the library's own name

namespace calyvox {

/// The settings: a tree of keys that hold typed, named values, kept in one SQLite file. Every operation
/// reads or writes the file itself, nothing is cached, so what another program changes is seen at once.
/// Operations answer with a status and never throw a Failure.
///
/// The file, for programs that read it (text is UTF-8; names are found whatever the case of A to Z, all
/// other letters differ in their two cases):
///
///   keys      path    the key, its root under the long name: HKEY_CURRENT_USER\SOFTWARE\Calyvox
///             parent  the path of the key above it, NULL for the six roots, which are always there
///   settings  path    the key that holds the value, a path of keys
///             name    the value's name, empty for the key's own value
///             type    1 string, 2 expandable string, 3 binary, 4 signed 32-bit number, or another number
///             value   TEXT for 1 and 2, INTEGER for 4, BLOB for all others, NULL for a value of no bytes
///             position  ascending in the order in which the values were made
///
/// HKEY_CLASSES_ROOT is not in the file: the store answers for it, ".mp3" being an "mp3file" that can be
/// opened, and takes no writes there.
///
/// user_version is 1, the journal mode DELETE. A value stored in another class than its type has is
/// converted as SQLite converts it. A file that its owner may not write is opened for reading alone.
class RegistryStore {
public:
    using Status = std::int32_t;
    static constexpr Status kSuccess = 0;
    static constexpr Status kNotFound = 2;
    /// The store cannot be written or is locked by another program, or the key has sub-keys.
    static constexpr Status kAccessDenied = 5;
    static constexpr Status kMoreData = 234;
    static constexpr Status kNoMoreItems = 259;

    static constexpr std::uint32_t kNone = 0;
    static constexpr std::uint32_t kText = 1;
    static constexpr std::uint32_t kExpandableText = 2;
    static constexpr std::uint32_t kBinary = 3;
    static constexpr std::uint32_t kNumber = 4;

    struct Root {
        std::string_view ShortName;
        std::string_view LongName;
        std::uint32_t Handle;
    };
    static constexpr std::array<Root, 6> kRoots = {{
        {"HKCU", "HKEY_CURRENT_USER", 0x80000001},
        {"HKLM", "HKEY_LOCAL_MACHINE", 0x80000002},
        {"HKU", "HKEY_USERS", 0x80000003},
        {"HKDD", "HKEY_DYN_DATA", 0x80000006},
        {"HKCC", "HKEY_CURRENT_CONFIG", 0x80000005},
        {"HKCR", "HKEY_CLASSES_ROOT", 0x80000000},
    }};

    /// An open key. It needs no closing; one that is deleted meanwhile holds no values.
    struct Key {
        std::string Path;
    };

    /// A value as the operations exchange it: strings with their terminating NUL, which the file does not
    /// hold, numbers as four bytes, the lowest first.
    struct Value {
        std::uint32_t Type = kNone;
        std::size_t Size = 0;
        std::string Data;
    };

    /// Opens or begins the file at the host path; missing folders are made. A file that SQLite calls corrupt
    /// is renamed to "<file>.corrupt" (or ".corrupt.2" and so on) and a fresh one begun; where no file can be
    /// had the store lives in memory. Both are told on standard error.
    explicit RegistryStore(const std::string& file);
    ~RegistryStore();
    RegistryStore(const RegistryStore&) = delete;
    RegistryStore& operator=(const RegistryStore&) = delete;

    /// The user's store, opened at the first call.
    static RegistryStore& Get();
    /// calyvox/settings.db in $XDG_CONFIG_HOME, otherwise in ~/.config; empty without either.
    static std::string DefaultFile();

    /// A number's bytes as values of type 4 hold them, and back; of more than four the first four count.
    static std::string NumberBytes(std::int32_t number);
    static std::int32_t NumberOf(std::string_view bytes);

    /// The key of a root's handle; one without a path for an unknown handle.
    static Key RootKey(std::uint32_t handle);

    /// Sub-key paths may be empty (the key itself) and may end in one backslash; key may be parent. A key is
    /// opened with all access: 5 where the store is read-only, 2 where there is no such key.
    Status OpenKey(const Key& parent, std::string_view subKey, Key& key);
    /// Opens the key, made with all that is missing above it. 2 for a path with an empty component.
    Status CreateKey(const Key& parent, std::string_view subKey, Key& key);
    /// 2 where there is no such key, 5 where it has sub-keys or is a root. Its values go with it.
    Status DeleteKey(const Key& parent, std::string_view subKey);
    /// The name of the index-th sub-key in alphabetical order; 259 behind the last.
    Status EnumerateKeys(const Key& key, std::size_t index, std::string& name);

    /// Type and size, and the bytes if room (in bytes) holds them; otherwise 234 and no bytes.
    Status QueryValue(const Key& key, std::string_view name, std::size_t room, Value& value);
    Status SetValue(const Key& key, std::string_view name, std::uint32_t type, std::string_view data);
    Status DeleteValue(const Key& key, std::string_view name);
    /// The name of the index-th value in the order of making; 259 behind the last.
    Status EnumerateValues(const Key& key, std::size_t index, std::string& name);

    /// Makes all that is written while it lives one step: written by Commit, undone without it. May be
    /// nested. If the step cannot begin, or the disk ends it, every further write in it answers 5, and so
    /// does Commit.
    class Batch {
    public:
        explicit Batch(RegistryStore& store);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

        Status Commit();

    private:
        RegistryStore& store_;
        bool nested_;
        bool open_ = false;
        bool committed_ = false;
    };

private:
    bool OpenFile(const std::string& file);
    bool RefusesWrites() const;

    std::unique_ptr<sqlite3, int (*)(sqlite3*)> database_;
    int batches_ = 0;
};

} // namespace calyvox
