// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/Services.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <utility>

namespace calyvox {

/// A pass over many files or rows, from the making of this object to its end. It clears modBase::CancelRun,
/// shows the progress window, which keeps all other windows from input, and is the one place where a pass
/// lets window events run. While one lives nothing else may begin, close or reload; a second one inside it
/// is a mistake of the program. The window is painted at most every 40 ms.
class Progress {
public:
    enum class Window { Shown, None };

    explicit Progress(Window window = Window::Shown);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void SetCaption(const std::string& caption);
    void SetCanCancel(bool canCancel);
    void SetMax(std::int64_t max) { state_.Max = max; }
    void SetValue(std::int64_t value);
    /// Part of a whole, as hundredths; a whole of 0 is passed over.
    void SetShare(std::int64_t part, std::int64_t whole);
    void Yield();
    /// Whether the user wants the pass to stop.
    static bool Cancelled();

    static bool Running() { return running_ != nullptr; }
    /// The bar of one file's copy in the pass that runs; nothing happens without one.
    static void SetWriteMax(std::int64_t bytes);
    static void SetWriteValue(std::int64_t bytes);

private:
    void Paint();
    void PaintNowAndThen();

    inline static Progress* running_ = nullptr;

    // The pass that runs; taken back however the object ends, and if it cannot be made.
    struct Claim {
        explicit Claim(Progress* pass) : Before(std::exchange(running_, pass)) {}
        ~Claim() { running_ = Before; }
        Claim(const Claim&) = delete;
        Claim& operator=(const Claim&) = delete;
        Progress* Before;
    };

    Claim claim_;
    Window window_;
    ProgressState state_;
    std::chrono::steady_clock::time_point painted_;
};

} // namespace calyvox
