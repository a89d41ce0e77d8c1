// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "automation/forms/frmOptions.h"

#include "app/SettingsCatalogue.h"
#include "app/clsRegistry.h"
#include "app/forms/Dialogs.h"
#include "app/forms/Forms.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"
#include "platform/HostPath.h"
#include "ui_frmOptions.h"

#include <QFileDialog>
#include <QFileSystemModel>
#include <QKeyEvent>
#include <QSortFilterProxyModel>

namespace calyvox {

namespace {

const QString kOwner = QStringLiteral("frmMain");

// Folders and what can be started.
class ProgramsOnly : public QSortFilterProxyModel {
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        const auto* files = static_cast<const QFileSystemModel*>(sourceModel());
        const QFileInfo file = files->fileInfo(files->index(row, 0, parent));
        return file.isDir() || file.isExecutable();
    }
};

void StoreText(const std::string& path, const std::string& text) {
    WriteSetting(path, text, RegistryStore::kText);
}

} // namespace

frmOptions::frmOptions() : ui_(std::make_unique<Ui::frmOptions>()) {
    ui_->setupUi(this);
    connect(ui_->chkDefaultPlayer, &QCheckBox::toggled, this, &frmOptions::chkDefaultPlayer_Click);
    connect(ui_->btnPlayerPfad, &QPushButton::clicked, this, &frmOptions::btnPlayerPfad_Click);
    connect(ui_->btnOK, &QPushButton::clicked, this, &frmOptions::btnOK_Click);
    connect(ui_->btnCancel, &QPushButton::clicked, this, [this] { Forms::Instance().Unload(objectName()); });
}

frmOptions::~frmOptions() = default;

void frmOptions::Load() {
    Forms::Instance().SetFormOwner(*this, kOwner);
    ui_->PlayerPfad->setText(Dialogs::NameEditText(ReadSetting("Parameter\\PlayerPath")));
    ui_->PlayerParameter->setText(Dialogs::NameEditText(ReadSetting("Parameter\\PlayerParameter")));
    ui_->chkDefaultPlayer->setChecked(CodePage::LeadingNumber(ReadSetting("Parameter\\DefaultPlayer")) == 1);
    chkDefaultPlayer_Click();
    Skip([this] { LoadVerbs(); });
    ui_->Shell->setCurrentText(Dialogs::TagText(ReadSetting("Parameter\\PlayerShell")));
    Dialogs::LoadDialogPosition(*this);
}

void frmOptions::LoadVerbs() {
    clsRegistry registry;
    registry.SetKey("HKCR\\.mp3\\");
    if (!registry.KeyExists()) return ui_->Shell->setEnabled(false);
    registry.SetKey("HKCR\\" + registry.getValue() + "\\shell\\");
    for (std::string verb : registry.regEnum()) {
        if (!verb.empty()) verb[0] = CodePage::Upper(verb[0]);
        ui_->Shell->addItem(Dialogs::TagText(verb));
    }
}

void frmOptions::chkDefaultPlayer_Click() {
    const bool isDefault = ui_->chkDefaultPlayer->isChecked();
    for (QWidget* control : {static_cast<QWidget*>(ui_->Shell), static_cast<QWidget*>(ui_->ShellLabel)})
        control->setEnabled(isDefault);
    for (QWidget* control :
         {static_cast<QWidget*>(ui_->PlayerPfad), static_cast<QWidget*>(ui_->btnPlayerPfad),
          static_cast<QWidget*>(ui_->PlayerParameter), static_cast<QWidget*>(ui_->ParameterLabel),
          static_cast<QWidget*>(ui_->HintLabel)})
        control->setEnabled(!isDefault);
}

// The pattern behind the text is what the dialog goes by; it is not shown.
void frmOptions::btnPlayerPfad_Click() {
    auto* dialog = new QFileDialog(this, QStringLiteral("Select Player-Folder"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setProxyModel(new ProgramsOnly(dialog));
    dialog->setNameFilter(QStringLiteral("Applications (*.exe) (*)"));
    const QString player =
        QString::fromStdString(HostPath::ToHost(Dialogs::NameBytes(ui_->PlayerPfad->text())));
    const QDir folder = QFileInfo(player).dir();
    dialog->setDirectory(
        player.startsWith(QLatin1Char('/')) && folder.exists() ? folder : QDir(QStringLiteral("/usr/bin")));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) {
        ui_->PlayerPfad->setText(Dialogs::NameEditText(HostPath::FromHost(file.toStdString())));
    });
    dialog->open();
}

void frmOptions::btnOK_Click() {
    Dialogs::Guarded([this] {
        const std::string path = Dialogs::NameBytes(ui_->PlayerPfad->text());
        const std::string parameter = Dialogs::NameBytes(ui_->PlayerParameter->text());
        if (!path.empty()) StoreText("Parameter\\PlayerPath", path);
        if (!parameter.empty()) StoreText("Parameter\\PlayerParameter", parameter);
        StoreText("Parameter\\DefaultPlayer", ui_->chkDefaultPlayer->isChecked() ? "1" : "0");
        StoreText("Parameter\\PlayerShell", CodePage::Trim(Dialogs::TagBytes(ui_->Shell->currentText())));
    });
    Forms::Instance().Unload(objectName());
}

// Enter presses the button that has the focus, or else OK.
void frmOptions::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return ui_->btnCancel->click();
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return Form::keyPressEvent(event);
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    (button ? button : ui_->btnOK)->click();
}

} // namespace calyvox
