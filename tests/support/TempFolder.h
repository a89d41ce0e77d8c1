// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace calyvox {

/// A fresh folder that goes away with all that is in it.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(TempFolder&&) = delete;

    const std::string& HostPath() const { return path_; }
    std::string InsidePath() const;
    /// The paths of a file in it, whether it is there or not. The name is host text.
    std::string Host(const std::string& name) const { return path_ + "/" + name; }
    std::string Inside(const std::string& name) const;
    /// Writes a file and returns its inside path.
    std::string Write(const std::string& name, std::string_view bytes) const;
    std::string Read(const std::string& name) const;
    /// The names of all entries, sorted, each followed by a blank.
    std::string Listing() const;

private:
    std::string path_;
};

std::string ReadHostFile(const std::string& hostPath);
void WriteHostFile(const std::string& hostPath, std::string_view bytes);

} // namespace calyvox
