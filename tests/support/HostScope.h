// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EngineHost.h"

#include <string>

namespace calyvox {

/// The engine's host for one test: boxes are answered and kept, and all is as before afterwards.
class HostScope {
public:
    HostScope() : saved_(Host()) {
        Host() = EngineHost();
        Host().ShowMessage = [this](const std::string& text, int buttons, const std::string& title) {
            Boxes += title + "|" + text + "|" + std::to_string(buttons) + "\n";
            return 1;
        };
    }
    ~HostScope() { Host() = saved_; }
    HostScope(HostScope&&) = delete;

    /// "title|text|buttons" and a line feed for each box.
    std::string Boxes;

private:
    EngineHost saved_;
};

} // namespace calyvox
