// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "support/TempFolder.h"

#include "platform/HostPath.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

namespace calyvox {

TempFolder::TempFolder() : path_((std::filesystem::temp_directory_path() / "calyvox-test-XXXXXX").string()) {
    if (!::mkdtemp(path_.data())) std::abort();
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::InsidePath() const { return calyvox::HostPath::FromHost(path_); }

std::string TempFolder::Inside(const std::string& name) const {
    return calyvox::HostPath::FromHost(Host(name));
}

std::string TempFolder::Write(const std::string& name, std::string_view bytes) const {
    WriteHostFile(Host(name), bytes);
    return Inside(name);
}

std::string TempFolder::Read(const std::string& name) const { return ReadHostFile(Host(name)); }

std::string TempFolder::Listing() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
        names.insert(entry.path().filename().string());
    std::string listing;
    for (const std::string& name : names)
        listing += name + " ";
    return listing;
}

std::string ReadHostFile(const std::string& hostPath) {
    std::ifstream file(hostPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteHostFile(const std::string& hostPath, std::string_view bytes) {
    std::ofstream(hostPath, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

} // namespace calyvox
