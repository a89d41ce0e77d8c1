// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "Contest.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <vector>

namespace calyvox::Bench {

namespace {

double Microseconds(const Contestant& contestant) {
    contestant.Prepare();
    const auto start = std::chrono::steady_clock::now();
    contestant.Run();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

void PrintHead() {
    std::printf("%-34s %6s %10s %10s %10s %10s %10s\n", "median microseconds a file", "files", "ours", "peer",
                "floor", "ours/peer", "ours/floor");
}

void Hold(const Contest& contest, std::size_t rounds) {
    const std::array contestants = {&contest.Ours, &contest.Peer, &contest.Floor};
    std::array<std::vector<double>, 3> times;
    for (std::size_t round = 0; round <= rounds; ++round) {
        for (std::size_t turn = 0; turn < contestants.size(); ++turn) {
            const std::size_t who = (round + turn) % contestants.size();
            const double time = Microseconds(*contestants[who]) / static_cast<double>(contest.Files);
            if (round > 0) times[who].push_back(time);
        }
    }
    const double ours = Median(times[0]);
    const double peer = Median(times[1]);
    const double floor = Median(times[2]);
    std::printf("%-34s %6zu %10.2f %10.2f %10.2f %10.2f %10.2f\n", contest.Name.c_str(), contest.Files, ours,
                peer, floor, ours / peer, ours / floor);
    std::fflush(stdout);
}

} // namespace calyvox::Bench
