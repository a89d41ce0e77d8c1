// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

#include <functional>

namespace calyvox {

class Form;

/// All forms of the process by name. A form is made at its first touch and lives until it is unloaded; the
/// next touch makes a new one. Nobody keeps a pointer to a form while window events run.
class Forms {
public:
    static Forms& Instance();

    using Factory = std::function<Form*()>;
    void Register(const QString& name, const Factory& factory);
    bool IsRegistered(const QString& name) const { return factories_.contains(name); }
    bool IsLoaded(const QString& name) const { return loaded_.contains(name); }
    bool AnyLoaded() const { return !loaded_.isEmpty(); }

    /// The form, loaded if it was not; nullptr if it is not registered or unloaded itself while loading.
    Form* Touch(const QString& name);
    /// Touches the form and shows it modeless.
    void Show(const QString& name);
    /// Asks the form, runs its unload handler, hides it and lets go of it. False if it refused.
    bool Unload(const QString& name);

    /// Called when the last form is gone.
    void SetLastFormGone(std::function<void()> handler) { lastFormGone_ = std::move(handler); }

private:
    Forms() = default;

    QHash<QString, Factory> factories_;
    QHash<QString, Form*> loaded_;
    std::function<void()> lastFormGone_ = [] {};
};

} // namespace calyvox
