// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace calyvox::Bench {

struct Contestant {
    std::function<void()> Run;
    /// What has to happen before each Run and is not timed.
    std::function<void()> Prepare = [] {};
};

/// The same work on the same number of files: done by this program, by TagLib, and by the host calls alone
/// that nobody can do without.
struct Contest {
    std::string Name;
    std::size_t Files = 0;
    Contestant Ours;
    Contestant Peer;
    Contestant Floor;
};

void PrintHead();
/// Lets the contestants take turns, each round begun by another one, and prints the medians. A first round
/// warms up and does not count.
void Hold(const Contest& contest, std::size_t rounds);

} // namespace calyvox::Bench
