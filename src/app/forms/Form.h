// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace calyvox {

/// A window that Forms knows by its name, which is its objectName. Nobody but Forms makes, shows or unloads
/// one; the close box asks Forms too.
class Form : public QWidget {
    Q_OBJECT

public:
    /// Runs once, when Forms has entered the form; it may unload the form again.
    virtual void Load() {}
    /// False keeps the form open.
    virtual bool QueryUnload() { return true; }
    /// The last that the form does.
    virtual void Unload() {}

protected:
    void closeEvent(QCloseEvent* event) override;
};

} // namespace calyvox
