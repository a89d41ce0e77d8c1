// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/WindowServices.h"

#include "app/Services.h"
#include "app/forms/Dialogs.h"
#include "app/forms/Forms.h"
#include "app/forms/clsBrowse.h"
#include "app/forms/frmErrors.h"
#include "app/forms/frmProgress.h"
#include "app/forms/frmWelcome.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>

#include <cstdio>

namespace calyvox {

namespace {

QString Lines(const std::string& text) {
    QString lines = Dialogs::NameText(text);
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

QWidget* Below() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

int ShowBox(const std::string& text, int buttons, const std::string& title) {
    QMessageBox box(IconOf(buttons), Dialogs::TagText(title), Lines(text), ButtonsOf(buttons), Below());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(DefaultOf(buttons));
    return CodeOf(box.exec());
}

std::string AskForText(const std::string& prompt, const std::string& title) {
    return Dialogs::NameBytes(QInputDialog::getText(Below(), Dialogs::TagText(title), Lines(prompt)));
}

std::string AskForFolder(const FolderRequest& request) {
    clsBrowse dialog(request, Below());
    return dialog.exec() == QDialog::Accepted ? dialog.Path() : std::string();
}

// Takes all input from the application.
class InputBlock : public QObject {
public:
    InputBlock() { qApp->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return true;
        default:
            return false;
        }
    }
};

void KeepPainting() {
    const InputBlock block;
    QCoreApplication::processEvents();
}

int PrintBox(const std::string& text, int buttons, const std::string& title) {
    const QByteArray line = (Dialogs::TagText(title) + QLatin1String(": ") + Lines(text)).toUtf8();
    std::fprintf(stderr, "%s\n", line.constData());
    return CodeOf(DefaultOf(buttons));
}

// The form of a name, if it is loaded.
template <typename T>
T* Loaded(const QString& name) {
    Forms& forms = Forms::Instance();
    return forms.IsLoaded(name) ? static_cast<T*>(forms.Touch(name)) : nullptr;
}

void InstallWindows() {
    const QString progress = QStringLiteral("frmProgress");
    const QString errors = QStringLiteral("frmErrors");
    const QString welcome = QStringLiteral("frmWelcome");
    Services& services = TheServices();
    services.LoadProgress = [=] { Forms::Instance().ShowBlocking(progress, QStringLiteral("frmMain")); };
    services.PaintProgress = [=](const ProgressState& state) {
        if (auto* form = Loaded<frmProgress>(progress)) form->Paint(state);
    };
    services.UnloadProgress = [=] { Forms::Instance().Unload(progress); };
    services.PaintErrors = [=] {
        if (auto* form = Loaded<frmErrors>(errors)) form->Paint();
    };
    services.ShowErrors = [=] {
        Forms::Instance().Show(errors);
        TheServices().PaintErrors();
    };
    services.WelcomeStatus = [=](const std::string& text) {
        if (auto* form = Loaded<frmWelcome>(welcome)) form->SetStatusText(Dialogs::TagText(text));
    };
    services.UnloadWelcome = [=] { Forms::Instance().Unload(welcome); };
}

} // namespace

void InstallServices(bool display) {
    TheServices().MessageBox = display ? ShowBox : PrintBox;
    TheServices().Yield = [] { QCoreApplication::processEvents(); };
    TheServices().KeepPainting = KeepPainting;
    if (display) {
        TheServices().InputBox = AskForText;
        TheServices().BrowseForFolder = AskForFolder;
    }
    InstallWindows();
}

} // namespace calyvox
