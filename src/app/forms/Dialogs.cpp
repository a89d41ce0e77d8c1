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

QString NameEditText(const std::string& name) {
    QString text;
    for (const char32_t unit : HostPath::Units(name))
        text += QChar::fromUcs4(unit);
    return text;
}

// A lone half of a surrogate pair stands for a byte; QString's own conversion would drop it.
std::string NameBytes(const QString& text) {
    std::u32string units;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool pair = c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        units += pair ? QChar::surrogateToUcs4(c, text.at(i + 1)) : char32_t{c.unicode()};
        if (pair) ++i;
    }
    return HostPath::FromUnits(units);
}

bool PlacesAreKnown() { return !QGuiApplication::platformName().startsWith(QLatin1String("wayland")); }

void Place(QWidget& window, QPoint place) { window.setGeometry(QRect(place, window.size())); }

void SaveDialogPosition(const Form& form) {
    if (!PlacesAreKnown()) return;
    Skip([&] {
        const auto write = [&](const char* edge, int pixels) {
            WriteNumber(PositionSetting(form, edge), pixels * kTwips);
        };
        write("Top", form.geometry().y());
        write("Left", form.geometry().x());
    });
}

void LoadDialogPosition(Form& form) {
    Skip([&] {
        const int top = CodePage::LeadingLong(ReadSetting(PositionSetting(form, "Top"), "500"));
        const int left = CodePage::LeadingLong(ReadSetting(PositionSetting(form, "Left"), "500"));
        Place(form, QPoint(left / kTwips, top / kTwips));
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
