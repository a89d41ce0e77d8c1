// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

namespace calyvox {

/// The signals that ask the process to end (SIGTERM, SIGINT, SIGHUP), brought into the event loop. One that
/// comes while a pass runs or a message box is open is kept until that is over. One at a time may live.
class Termination : public QObject {
    Q_OBJECT

public:
    explicit Termination(std::function<void()> end);
    ~Termination() override;

private:
    void Receive();
    void EndIfFree();

    std::function<void()> end_;
    QTimer retry_;
};

} // namespace calyvox
