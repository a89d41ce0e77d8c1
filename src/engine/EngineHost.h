// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace calyvox {

/// What the engine needs from outside. The defaults do nothing, so that the engine works alone.
struct EngineHost {
    /// Tags are written unsynchronised.
    bool WriteUnSync = false;
    /// A tag keeps one comment and one genre only.
    bool SingleCOMMGenre = false;

    /// A box with a text (lines parted by CR), a button code and a title; the result is the button's code.
    std::function<int(const std::string& text, int buttons, const std::string& title)> ShowMessage =
        [](const std::string&, int, const std::string&) { return 1; };
    /// The bar of one file's copy, in bytes.
    std::function<void(std::int64_t)> WriteBarMax = [](std::int64_t) {};
    std::function<void(std::int64_t)> WriteBarValue = [](std::int64_t) {};
    /// One line of the trace.
    std::function<void(const std::string&)> ReportLine = [](const std::string&) {};
    /// The major version of a new ID3V2 tag, asked at each one.
    std::function<std::uint8_t()> NewTagVersion = [] { return std::uint8_t{3}; };
};

/// The one host of the process.
EngineHost& Host();

} // namespace calyvox
