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
    enum class UnloadReason { CloseBox, Code };

    /// Runs once, when Forms has entered the form; it may unload the form again.
    virtual void Load() {}
    /// False keeps the form open.
    virtual bool QueryUnload(UnloadReason) { return true; }
    /// The last that the form does; false keeps it open after all.
    virtual bool Unload() { return true; }
    /// A form that was opened from this one has gone.
    virtual void Activated() {}

protected:
    void closeEvent(QCloseEvent* event) override;
};

} // namespace calyvox
