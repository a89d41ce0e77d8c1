// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/clsRegistry.h"

#include "platform/CodePage.h"

#include <algorithm>

namespace calyvox {

namespace {

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

bool EndsInBackslash(const std::string& text) { return !text.empty() && text.back() == '\\'; }

std::string BinaryText(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += {kDigits[byte >> 4], kDigits[byte & 15], ' '};
    }
    return CodePage::Trim(text);
}

// The hexadecimal number that the token begins with, 0 without one; all above 255 counts as 256.
unsigned HexNumber(std::string_view token) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    unsigned number = 0;
    for (const char c : token) {
        const std::size_t digit = kDigits.find(CodePage::Upper(c));
        if (digit == std::string_view::npos) break;
        number = std::min(number * 16 + static_cast<unsigned>(digit), 256U);
    }
    return number;
}

std::string BinaryBytes(const std::string& text) {
    std::string bytes;
    for (std::size_t begin = text.find_first_not_of(' '); begin != std::string::npos;) {
        const std::size_t end = std::min(text.find(' ', begin), text.size());
        const unsigned number = HexNumber(std::string_view(text).substr(begin, end - begin));
        if (number > 255)
            throw Failure(clsRegistry::kInvalidBinary, "setValue",
                          "Ung\xFCltige Bin\xE4rzahl (gr\xF6\xDF"
                          "er als 255): " +
                              Quoted(text));
        bytes += static_cast<char>(number);
        begin = text.find_first_not_of(' ', end);
    }
    return bytes;
}

} // namespace

Failure clsRegistry::CannotCreate(const std::string& key, std::int32_t status) {
    return Failure(kCannotCreate, "setValue",
                   "Fehler beim Erstellen/Zugriff auf Schl\xFCssel " + Quoted(key) +
                       " Error #: " + std::to_string(status));
}

void clsRegistry::SetKey(const std::string& key) {
    if (key.empty() || key == "\\") throw Failure(kInvalidKey, "Let Key", "Ung\xFCltiger Schl\xFCssel");
    key_ = key;
}

bool clsRegistry::KeyExists() const {
    try {
        if (EndsInBackslash(key_))
            OpenKey(key_);
        else
            getValue();
        return true;
    } catch (const Failure&) {
        return false;
    }
}

void clsRegistry::SetKeyExists(bool) { throw Failure(kKeyExistsIsReadOnly, "keyExists", ""); }

std::int32_t clsRegistry::delKey() {
    const Failure invalid(kInvalidKey, "delKey", "Ung\xFCltiger Schl\xFCssel!");
    const bool isKey = EndsInBackslash(key_);
    if (isKey) key_.pop_back();
    const std::size_t last = key_.rfind('\\');
    if (last == std::string::npos || (isKey && EndsInBackslash(key_))) throw invalid;
    const RegistryStore::Key above = OpenKey(key_.substr(0, last));
    const std::string name = key_.substr(last + 1);
    return isKey ? store_.DeleteKey(above, name) : store_.DeleteValue(above, name);
}

std::vector<std::string> clsRegistry::regEnum() const {
    const RegistryStore::Key key = OpenKey(key_);
    const bool subKeys = EndsInBackslash(key_);
    std::vector<std::string> names;
    std::string name;
    while ((subKeys ? store_.EnumerateKeys(key, names.size(), name)
                    : store_.EnumerateValues(key, names.size(), name)) == RegistryStore::kSuccess)
        names.push_back(name);
    return names;
}

std::string clsRegistry::getValue() const {
    const std::size_t last = key_.rfind('\\');
    if (last == std::string::npos)
        throw Failure(kInvalidKey, "getValue", "Ung\xFCltiger Schl\xFCssel: " + Quoted(key_));
    return ReadValue(OpenKey(key_.substr(0, last)), key_.substr(last + 1));
}

bool clsRegistry::setValue(const std::string& value, std::uint32_t type) {
    const std::size_t last = key_.rfind('\\');
    if (last == std::string::npos)
        throw Failure(kInvalidKey, "getValue", "Ung\xFCltiger Schl\xFCssel: " + Quoted(key_));
    const RegistryStore::Key key = CreateKey(key_.substr(0, last));
    const std::string name = key_.substr(last + 1);
    switch (type) {
    case RegistryStore::kText:
        return store_.SetValue(key, name, type, value + '\0') == RegistryStore::kSuccess;
    case RegistryStore::kBinary:
        return store_.SetValue(key, name, type, BinaryBytes(value)) == RegistryStore::kSuccess;
    case RegistryStore::kNumber:
        return store_.SetValue(key, name, type, RegistryStore::NumberBytes(CodePage::LeadingLong(value))) ==
               RegistryStore::kSuccess;
    default:
        return true;
    }
}

std::uint32_t clsRegistry::getRoot(const std::string& name) {
    const std::string upper = CodePage::Upper(name);
    for (const RegistryStore::Root& root : RegistryStore::kRoots)
        if (upper == root.ShortName || upper == root.LongName) return root.Handle;
    throw Failure(kUnknownRoot, "getRoot", "Unbekannter Hauptschl\xFCssel: " + Quoted(name));
}

RegistryStore::Key clsRegistry::OpenKey(const std::string& path) const {
    const std::size_t first = path.find('\\');
    RegistryStore::Key key = RegistryStore::RootKey(getRoot(path.substr(0, first)));
    if (first == std::string::npos) return key;
    const RegistryStore::Status status = store_.OpenKey(key, path.substr(first + 1), key);
    if (status != RegistryStore::kSuccess)
        throw Failure(kCannotOpen, "OpenKey",
                      "Kann Schl\xFCssel nicht \xF6"
                      "ffnen " +
                          Quoted(path) + ", Error # " + std::to_string(status));
    return key;
}

RegistryStore::Key clsRegistry::CreateKey(const std::string& path) {
    const std::size_t first = path.find('\\');
    if (first == std::string::npos) return RegistryStore::RootKey(getRoot(path));
    if (!autoCreate() && !KeyExists())
        throw Failure(kNotCreated, "setValue", "Schl\xFCssel wird nicht angelegt");
    RegistryStore::Key key = RegistryStore::RootKey(getRoot(path.substr(0, first)));
    const RegistryStore::Status status = store_.CreateKey(key, path.substr(first + 1), key);
    if (status != RegistryStore::kSuccess) throw CannotCreate(key_, status);
    return key;
}

std::string clsRegistry::ReadValue(const RegistryStore::Key& key, const std::string& name) const {
    RegistryStore::Value value;
    RegistryStore::Status status = store_.QueryValue(key, name, 0, value);
    if (status == RegistryStore::kSuccess) return {};
    std::string text;
    if (status == RegistryStore::kMoreData) {
        switch (value.Type) {
        case RegistryStore::kText:
        case RegistryStore::kExpandableText:
            status = store_.QueryValue(key, name, value.Size, value);
            text = value.Data.substr(0, value.Data.size() - 1);
            break;
        case RegistryStore::kBinary:
            status = store_.QueryValue(key, name, value.Size, value);
            text = BinaryText(value.Data);
            break;
        case RegistryStore::kNumber:
            status = store_.QueryValue(key, name, 4, value);
            text = std::to_string(RegistryStore::NumberOf(value.Data));
            break;
        default:
            break;
        }
    }
    if (status != RegistryStore::kSuccess)
        throw Failure(kCannotRead, "getValue", "Kann Schl\xFCssel nicht lesen " + Quoted(key_));
    return text;
}

} // namespace calyvox
