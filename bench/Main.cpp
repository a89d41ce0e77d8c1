// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "Contests.h"
#include "app/SettingsCatalogue.h"
#include "engine/Tables.h"
#include "platform/Failure.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

using calyvox::Bench::Layout;
using calyvox::Bench::Libraries;

constexpr std::size_t kUsualFiles = 2000;
constexpr std::size_t kUsualRounds = 11;
// As many as the peer may have open at once.
constexpr std::size_t kMostOpen = 500;

std::size_t Number(const char* text, std::size_t usual) {
    return text ? std::max<std::size_t>(1, std::strtoul(text, nullptr, 10)) : usual;
}

void HoldAll(const calyvox::TempFolder& folder, std::size_t count, std::size_t rounds) {
    using namespace calyvox::Bench;
    const Layout small{count, 25'000};
    const Layout pictures{std::max<std::size_t>(1, count / 10), 25'000, 100'000};
    const Layout large{3, 5'000'000};
    PrintHead();
    {
        const Libraries files(folder.Host("small"), small);
        Hold(Listing("list", files), rounds);
        Hold(UpdatingAll(files, folder.HostPath()), rounds);
    }
    {
        const Libraries files(folder.Host("pictures"), pictures);
        Hold(Listing("list, with a picture of 100 kB", files), rounds);
    }
    {
        const Libraries files(folder.Host("saved"), {std::min(count, kMostOpen), 25'000});
        Hold(SavingInPlace(files), rounds);
    }
    const Libraries files(folder.Host("large"), large);
    Hold(Growing(files), rounds);
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 4 || (argc > 1 && argv[1][0] == '-')) {
        std::fprintf(stderr, "Usage: calyvox-bench [FOLDER [FILES [ROUNDS]]]\n");
        return 2;
    }
    try {
        if (argc > 1) ::setenv("TMPDIR", argv[1], 1);
        const calyvox::TempFolder folder;
        ::setenv("XDG_CONFIG_HOME", folder.Host("config").c_str(), 1);
        calyvox::BuildTables();
        calyvox::CheckRegSettings({folder.InsidePath(), "calyvox", folder.InsidePath()});
        HoldAll(folder, Number(argc > 2 ? argv[2] : nullptr, kUsualFiles),
                Number(argc > 3 ? argv[3] : nullptr, kUsualRounds));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "calyvox-bench: %s\n", failure.what());
        return 1;
    }
    return 0;
}
