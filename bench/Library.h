// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace calyvox::Bench {

/// Audio files that are all alike, each with a tag of version 2.3 and an ID3V1 tag.
struct Layout {
    std::size_t Files = 0;
    std::size_t AudioLength = 0;
    std::size_t PictureLength = 0;
    /// Room for the tag to grow in place.
    std::size_t Padding = 1000;
};

/// A folder of them, of one contestant alone. It is never removed: it stands in a folder that is.
class Library {
public:
    Library(const std::string& hostFolder, const Layout& layout);

    const std::vector<std::string>& HostPaths() const { return hostPaths_; }
    const std::vector<std::string>& Paths() const { return paths_; }
    std::size_t Count() const { return paths_.size(); }
    /// Of each file, and of the ID3V2 tag at its start, in bytes.
    std::size_t FileLength() const { return fileLength_; }
    std::size_t TagLength() const { return tagLength_; }

private:
    std::vector<std::string> hostPaths_;
    std::vector<std::string> paths_;
    std::size_t fileLength_ = 0;
    std::size_t tagLength_ = 0;
};

} // namespace calyvox::Bench
