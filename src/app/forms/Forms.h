// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/forms/Form.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

namespace calyvox {

/// All forms of the process by name. A form is made at its first touch and lives until it is unloaded; the
/// next touch makes a new one. Nobody keeps a pointer to a form while window events run. Windows block each
/// other through modality alone, and only here.
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
    /// Touches the form and shows it modeless and in front. The owner hears of its end by Activated.
    void ShowBeside(const QString& name, const QString& owner);
    /// Touches the form and shows it above the owner, which gets no input while it is loaded; returns at
    /// once. The owner hears of its end by Activated.
    void ShowModal(const QString& name, const QString& owner);
    /// The same above the modal form that has the input now, or else above the one named;
    /// nobody hears of its end.
    void ShowBlocking(const QString& name, const QString& fallbackOwner);
    /// Hides a modeless form, which stays loaded, and tells the owner by Activated.
    void HideAndReturn(const QString& name, const QString& owner);
    /// Asks the form, runs its unload handler, hides it and lets go of it. False if it refused.
    bool Unload(const QString& name, Form::UnloadReason reason = Form::UnloadReason::Code);

    /// Unloads all modal forms, the newest first, as their close boxes would; false if one refused.
    bool UnloadModal();

    /// Makes owner, if it is loaded, the window that child stays above and is minimised with.
    void SetFormOwner(Form& child, const QString& owner) const;

    /// Called when the last form is gone.
    void SetLastFormGone(std::function<void()> handler) { lastFormGone_ = std::move(handler); }

private:
    Forms() = default;

    void ShowAbove(Form& form, const QString& owner);
    void Activate(const QString& name);

    QHash<QString, Factory> factories_;
    QHash<QString, Form*> loaded_;
    QHash<QString, QString> owners_; // of the modal forms that tell theirs
    QStringList modal_;              // the modal forms, the newest last
    QStringList unloading_;
    std::function<void()> lastFormGone_ = [] {};
};

} // namespace calyvox
