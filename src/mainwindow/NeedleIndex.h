// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace calyvox {

/// Finds files by "\NAME.mp3" among many paths, each of which can be taken out once. A path whose last part
/// is the needle to the letter is preferred; without one it is the first that holds the needle anywhere,
/// letter case ignored. The answer is that of a walk from the first path on, in less time.
class NeedleIndex {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    explicit NeedleIndex(std::vector<std::string> paths);

    /// The 0-based position of the path found, which no later call finds again; kNone without one.
    std::size_t Take(const std::string& needle);

private:
    using Places = std::unordered_map<std::string, std::vector<std::size_t>>; // positions, the last first

    std::size_t First(Places& places, const std::string& name);
    std::size_t FirstHolding(const std::string& needle);

    std::vector<std::string> upper_;
    std::vector<bool> taken_;
    Places exact_;
    Places anyCase_;
    std::vector<std::size_t> odd_; // those that hold ".mp3" elsewhere than at their end
};

} // namespace calyvox
