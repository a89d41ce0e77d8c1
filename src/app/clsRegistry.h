// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Failure.h"
#include "platform/RegistryStore.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace calyvox {

/// The one way to the settings: set Key, then call one operation. A Key is ROOT\sub\sub\name; one that ends
/// in a backslash names a key, any other a value. ROOT is the short or long name of a root in any case.
/// Values come and go as text: numbers in decimal, binary as "0A FF". All operations but KeyExists raise a
/// Failure with one of the numbers below; their texts are German whatever the language of the windows.
class clsRegistry {
public:
    static constexpr auto kInvalidKey = static_cast<std::int32_t>(0x80040202);
    static constexpr auto kUnknownRoot = static_cast<std::int32_t>(0x80040203);
    static constexpr auto kCannotOpen = static_cast<std::int32_t>(0x80040204);
    static constexpr auto kNotCreated = static_cast<std::int32_t>(0x80040205);
    static constexpr auto kKeyExistsIsReadOnly = static_cast<std::int32_t>(0x80040207);
    static constexpr auto kCannotRead = static_cast<std::int32_t>(0x80040208);
    static constexpr auto kInvalidBinary = static_cast<std::int32_t>(0x8004020C);
    static constexpr auto kCannotCreate = static_cast<std::int32_t>(0x8004020F);

    /// The failure of a key that the store will not make or write to; whoever commits a Batch raises it too.
    static Failure CannotCreate(const std::string& key, std::int32_t status);

    explicit clsRegistry(RegistryStore& store = RegistryStore::Get()) : store_(store) {}

    const std::string& Key() const { return key_; }
    /// Refuses the empty text and a lone backslash; the old Key stays.
    void SetKey(const std::string& key);

    // NOLINTBEGIN(readability-identifier-naming): the names outside programs and the settings' texts know

    /// While it is false, setValue writes only to what KeyExists finds.
    bool autoCreate() const { return autoCreate_; }
    void SetautoCreate(bool value) { autoCreate_ = value; }

    /// False for what is missing, cannot be read or cannot be written; never fails.
    bool KeyExists() const;
    /// Always fails.
    [[noreturn]] void SetKeyExists(bool value);

    /// The store's status. For a key the trailing backslash is cut from Key; one with sub-keys stays.
    std::int32_t delKey();
    /// The names of the sub-keys with a trailing backslash, without it those of the values of the key that
    /// the whole of Key names.
    std::vector<std::string> regEnum() const;
    std::string getValue() const;
    /// True if the store took it. Types are those of RegistryStore; kText, kBinary and kNumber write the
    /// value, any other makes the key and writes nothing. Failure 6 for a number beyond 32 bits.
    bool setValue(const std::string& value, std::uint32_t type);

private:
    static std::uint32_t getRoot(const std::string& name);
    // NOLINTEND(readability-identifier-naming)

    RegistryStore::Key OpenKey(const std::string& path) const;
    RegistryStore::Key CreateKey(const std::string& path);
    std::string ReadValue(const RegistryStore::Key& key, const std::string& name) const;

    RegistryStore& store_;
    std::string key_;
    bool autoCreate_ = true;
};

} // namespace calyvox
