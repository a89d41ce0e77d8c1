// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "platform/PrivateProfile.h"

#include <algorithm>
#include <map>
#include <utility>

namespace PrivateProfile = calyvox::PrivateProfile;
using calyvox::Fuzz::Require;

namespace {

using Name = std::pair<std::string, std::string>; // section and key
using Values = std::map<Name, std::string>;

Values ReadAll(const std::string& path) {
    Values values;
    for (const std::string& section : PrivateProfile::SectionNames(path)) {
        const std::string keys = PrivateProfile::ReadKeys(section, {}, path);
        for (std::size_t at = 0; at < keys.size();) {
            const std::string key = keys.substr(at, keys.find('\0', at) - at);
            at += key.size() + 1;
            values[{section, key}] = PrivateProfile::ReadValue(section, key, "absent", path);
        }
    }
    return values;
}

// The first key of all, unless a CR would end its name.
Name OneToWrite(const Values& values) {
    if (values.empty()) return {"Fuzz", "Key"};
    const auto& [section, key] = values.begin()->first;
    const bool nameable = (section + key).find('\r') == std::string::npos;
    return nameable ? Name{section, key} : Name{"Fuzz", "Key"};
}

void WriteAndReadAgain(const std::string& path) {
    constexpr const char* kValue = "written by the fuzzer";
    const Values before = ReadAll(path);
    const Name name = OneToWrite(before);
    Require(PrivateProfile::WriteValue(name.first, name.second, kValue, path), "a value can be written");
    Require(PrivateProfile::ReadValue(name.first, name.second, {}, path) == kValue, "it reads as written");
    const Values after = ReadAll(path);
    for (const auto& [other, value] : before)
        Require(after.contains(other), "no key is lost");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto& folder = calyvox::Fuzz::Folder();
    std::string bytes = calyvox::Fuzz::AsText(data, size);
    std::replace(bytes.begin(), bytes.end(), '\0', '\n'); // a NUL within a key would part it in the list
    const std::string path = folder.Write("a.ini", bytes);
    WriteAndReadAgain(path);
    const std::string written = folder.Read("a.ini");
    WriteAndReadAgain(path);
    Require(folder.Read("a.ini") == written, "writing the same again changes nothing");
    return 0;
}
