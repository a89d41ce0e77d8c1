// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/Dialogs.h"

#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/forms/Form.h"
#include "app/modBase.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"
#include "platform/HostPath.h"

#include <QGuiApplication>

namespace calyvox::Dialogs {

namespace {

std::string PositionSetting(const Form& form, const char* edge) {
    return "Settings\\Dialogs\\" + form.objectName().toStdString() + edge;
}

} // namespace

QString TagText(const std::string& bytes) { return QString::fromStdString(CodePage::ToUtf8(bytes)); }

std::string TagBytes(const QString& text) { return CodePage::FromUtf8(text.toStdString()); }

QString NameText(const std::string& path) { return QString::fromStdString(HostPath::Shown(path)); }

bool PlacesAreKnown() { return !QGuiApplication::platformName().startsWith(QLatin1String("wayland")); }

void SaveDialogPosition(const Form& form) {
    if (!PlacesAreKnown()) return;
    Skip([&] {
        const auto write = [&](const char* edge, int pixels) {
            WriteSetting(PositionSetting(form, edge), std::to_string(pixels * kTwips),
                         RegistryStore::kNumber);
        };
        write("Top", form.y());
        write("Left", form.x());
    });
}

void LoadDialogPosition(Form& form) {
    Skip([&] {
        const int top = CodePage::LeadingLong(ReadSetting(PositionSetting(form, "Top"), "500"));
        const int left = CodePage::LeadingLong(ReadSetting(PositionSetting(form, "Left"), "500"));
        form.move(left / kTwips, top / kTwips);
    });
}

void Guarded(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const Failure& failure) {
        modBase::MsgResult = modBase::ShowMessage(failure.Text(), MsgBox::kCritical, "Calyvox");
    }
}

} // namespace calyvox::Dialogs
