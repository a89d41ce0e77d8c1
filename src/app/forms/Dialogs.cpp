// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/Dialogs.h"

#include "app/Services.h"
#include "platform/CodePage.h"
#include "platform/HostPath.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdio>

namespace calyvox::Dialogs {

namespace {

QString Lines(const std::string& text) {
    QString lines = NameText(text);
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return lines;
}

QMessageBox::StandardButtons ButtonsOf(int buttons) {
    switch (buttons & MsgBox::kButtonMask) {
    case MsgBox::kOkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MsgBox::kYesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MsgBox::kYesNo:
        return QMessageBox::Yes | QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

QMessageBox::Icon IconOf(int buttons) {
    switch (buttons & MsgBox::kIconMask) {
    case MsgBox::kCritical:
        return QMessageBox::Critical;
    case MsgBox::kQuestion:
        return QMessageBox::Question;
    case MsgBox::kExclamation:
        return QMessageBox::Warning;
    case MsgBox::kInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

int CodeOf(int button) {
    switch (button) {
    case QMessageBox::Cancel:
        return MsgBox::kCancel;
    case QMessageBox::Yes:
        return MsgBox::kYes;
    case QMessageBox::No:
        return MsgBox::kNo;
    default:
        return MsgBox::kOk;
    }
}

// The first button is the default one.
QMessageBox::StandardButton DefaultOf(int buttons) {
    return ButtonsOf(buttons) & QMessageBox::Yes ? QMessageBox::Yes : QMessageBox::Ok;
}

int ShowBox(const std::string& text, int buttons, const std::string& title) {
    QMessageBox box(IconOf(buttons), TagText(title), Lines(text), ButtonsOf(buttons),
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(DefaultOf(buttons));
    return CodeOf(box.exec());
}

int PrintBox(const std::string& text, int buttons, const std::string& title) {
    const QByteArray line = (TagText(title) + QLatin1String(": ") + Lines(text)).toUtf8();
    std::fprintf(stderr, "%s\n", line.constData());
    return CodeOf(DefaultOf(buttons));
}

} // namespace

QString TagText(const std::string& bytes) { return QString::fromStdString(CodePage::ToUtf8(bytes)); }

QString NameText(const std::string& path) { return QString::fromStdString(HostPath::Shown(path)); }

void InstallServices(bool display) {
    TheServices().MessageBox = display ? ShowBox : PrintBox;
    TheServices().Yield = [] { QCoreApplication::processEvents(); };
}

} // namespace calyvox::Dialogs
