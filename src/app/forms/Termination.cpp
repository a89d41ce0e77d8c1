// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/Termination.h"

#include "app/Progress.h"
#include "app/forms/Form.h"

#include <QApplication>
#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <utility>

namespace calyvox {

namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};
constexpr int kRetryMs = 100;

std::array<int, 2> thePipe = {-1, -1}; // NOLINT(readability-identifier-naming): read by the handler alone

void OnSignal(int) {
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(thePipe[1], &byte, 1);
}

} // namespace

Termination::Termination(std::function<void()> end) : end_(std::move(end)) {
    retry_.setInterval(kRetryMs);
    connect(&retry_, &QTimer::timeout, this, &Termination::EndIfFree);
    if (::pipe2(thePipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* notifier = new QSocketNotifier(thePipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &Termination::Receive);
    for (const int signal : kSignals)
        std::signal(signal, OnSignal);
}

Termination::~Termination() {
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
    for (int& end : thePipe)
        if (end >= 0) ::close(std::exchange(end, -1));
}

void Termination::Receive() {
    char byte = 0;
    while (::read(thePipe[0], &byte, 1) == 1) {
    }
    retry_.start();
    EndIfFree();
}

void Termination::EndIfFree() {
    const QWidget* modal = QApplication::activeModalWidget();
    if (Progress::Running() || (modal && !qobject_cast<const Form*>(modal))) return;
    retry_.stop();
    end_();
}

} // namespace calyvox
