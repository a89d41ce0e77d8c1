// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "mainwindow/MainWindow.h"

namespace calyvox {

/// Keeps the list unpainted while it lives.
class Unpainted {
public:
    explicit Unpainted(const MainWindow& window) : window_(window) { window_.View.SetRepainting(false); }
    ~Unpainted() { window_.View.SetRepainting(true); }
    Unpainted(const Unpainted&) = delete;
    Unpainted& operator=(const Unpainted&) = delete;

private:
    const MainWindow& window_;
};

} // namespace calyvox
