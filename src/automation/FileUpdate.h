// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/MP3.h"

#include <cstdint>
#include <string>

namespace calyvox {

/// One file of a mass update: a section of the data file, applied.
class FileUpdate {
public:
    /// What the row of the file says.
    struct Result {
        std::string Text;
        bool Error = false;
    };

    /// keys is the section's key list, each followed by a NUL.
    FileUpdate(std::string dataFile, std::string section, std::string keys)
        : dataFile_(std::move(dataFile)), section_(std::move(section)), keys_(std::move(keys)) {}

    /// Whether the section names a file at all.
    bool HasPath() const { return HasKey("Path"); }
    /// Its path without quotes; one that begins with "/" is taken as the host's bytes.
    std::string Path() const;
    /// Changes the file. Whatever fails inside ends here, in the result.
    Result Run(const std::string& path);

private:
    bool HasKey(const std::string& key) const;
    std::string Value(const std::string& key, const std::string& fallback = {}) const;
    bool IsYes(const std::string& key) const;
    void Apply(const std::string& path);
    void ApplyID3V1();
    void ApplyID3V2();
    std::uint8_t TagVersion() const;
    Result Outcome() const;

    std::string dataFile_;
    std::string section_;
    std::string keys_;
    MP3 mp3_;
    std::uint8_t status_ = 0;
    std::uint8_t version_ = 0;
    bool syncTrouble_ = false;
    bool id3v1Changed_ = false;
    bool id3v2Removed_ = false;
};

} // namespace calyvox
