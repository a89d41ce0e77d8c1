// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Progress.h"

#include "app/modBase.h"

#include <cassert>

namespace calyvox {

namespace {

// A repaint costs more than a file.
constexpr std::chrono::milliseconds kRepaint{40};

} // namespace

Progress::Progress(Window window) : claim_(this), window_(window) {
    assert(!claim_.Before);
    modBase::CancelRun = false;
    if (window_ == Window::None) return;
    TheServices().LoadProgress();
    Paint();
    Yield();
}

// What was clicked during the last file is still kept from the other windows.
Progress::~Progress() {
    if (window_ == Window::Shown) {
        Yield();
        TheServices().UnloadProgress();
    }
}

void Progress::SetCaption(const std::string& caption) {
    state_.Caption = caption;
    PaintNowAndThen();
}

void Progress::SetCanCancel(bool canCancel) {
    state_.CanCancel = canCancel;
    Paint();
}

void Progress::SetValue(std::int64_t value) {
    state_.Value = value;
    PaintNowAndThen();
}

void Progress::SetShare(std::int64_t part, std::int64_t whole) {
    if (whole != 0) SetValue(part * 100 / whole);
}

void Progress::Yield() { TheServices().Yield(); }

bool Progress::Cancelled() { return modBase::CancelRun; }

void Progress::SetWriteMax(std::int64_t bytes) {
    if (running_) running_->state_.WriteMax = bytes;
}

void Progress::SetWriteValue(std::int64_t bytes) {
    if (!running_) return;
    running_->state_.WriteValue = bytes;
    running_->PaintNowAndThen();
}

void Progress::PaintNowAndThen() {
    if (std::chrono::steady_clock::now() - painted_ >= kRepaint) Paint();
}

void Progress::Paint() {
    painted_ = std::chrono::steady_clock::now();
    if (window_ == Window::Shown) TheServices().PaintProgress(state_);
}

} // namespace calyvox
