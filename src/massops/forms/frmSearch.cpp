// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "massops/forms/frmSearch.h"

#include "app/Progress.h"
#include "app/SettingsCatalogue.h"
#include "app/forms/Dialogs.h"
#include "app/forms/Forms.h"
#include "mainwindow/MainWindow.h"
#include "ui_frmSearch.h"

#include <QKeyEvent>

namespace calyvox {

namespace {

const QString kForm = QStringLiteral("frmSearch");
const QString kOwner = QStringLiteral("frmMain");

// Any other value leaves the box as it is.
void LoadCheck(const char* path, QCheckBox& box) {
    const auto number = NumberSetting(path);
    if (number && (*number == 0 || *number == 1)) box.setChecked(*number == 1);
}

} // namespace

frmSearch::frmSearch() : ui_(std::make_unique<Ui::frmSearch>()), window_(TheMainWindow()) {
    ui_->setupUi(this);
    connect(ui_->btnSearch, &QPushButton::clicked, this, &frmSearch::btnSearch_Click);
    connect(ui_->btnGroup, &QPushButton::clicked, this, &frmSearch::btnGroup_Click);
    connect(ui_->btnClose, &QPushButton::clicked, this, &frmSearch::btnClose_Click);
}

frmSearch::~frmSearch() = default;

void frmSearch::submnuSearch() {
    Forms::Instance().ShowBeside(kForm, kOwner);
    const auto* form = qobject_cast<frmSearch*>(Forms::Instance().Touch(kForm));
    if (!form) return;
    form->ui_->Search->setFocus();
    form->ui_->Search->selectAll();
}

void frmSearch::Load() {
    Forms::Instance().SetFormOwner(*this, kOwner);
    Dialogs::LoadDialogPosition(*this);
    LoadSettings();
}

bool frmSearch::QueryUnload(UnloadReason) { return !Progress::Running(); }

bool frmSearch::Unload() {
    Dialogs::Guarded([&] { SaveSettings(); });
    Dialogs::SaveDialogPosition(*this);
    return true;
}

void frmSearch::LoadSettings() {
    LoadCheck("Settings\\SearchFrags", *ui_->chkFrags);
    LoadCheck("Settings\\SearchEck", *ui_->chkEckig);
    const auto item = NumberSetting("Settings\\SearchItem");
    if (item == static_cast<int>(SearchScope::TagEntries)) ui_->optTag->setChecked(true);
    if (item == static_cast<int>(SearchScope::Both)) ui_->optBoth->setChecked(true);
}

void frmSearch::SaveSettings() const {
    const SearchOptions options = Options();
    const auto save = [](const char* path, int number) {
        WriteSetting(path, std::to_string(number), RegistryStore::kText);
    };
    WriteTogether([&] {
        save("Settings\\SearchFrags", options.Fragments ? 1 : 0);
        save("Settings\\SearchEck", options.Brackets ? 1 : 0);
        save("Settings\\SearchItem", static_cast<int>(options.Scope));
    });
}

SearchOptions frmSearch::Options() const {
    SearchOptions options;
    options.Fragments = ui_->chkFrags->isChecked();
    options.Brackets = ui_->chkEckig->isChecked();
    if (ui_->optTag->isChecked()) options.Scope = SearchScope::TagEntries;
    if (ui_->optBoth->isChecked()) options.Scope = SearchScope::Both;
    return options;
}

void frmSearch::btnSearch_Click() {
    if (Progress::Running()) return;
    RowList& rows = window_.FileList;
    rows.SelectAll(RowList::Flag::Off);
    const std::string text = Dialogs::NameBytes(ui_->Search->text());
    if (!text.empty()) {
        const SearchOptions options = Options();
        const auto found =
            FindListItems(rows, SearchPattern(text, options), options.Scope, CompareMode::NoCase);
        for (const std::size_t row : found)
            rows.Select(row, row, RowList::Flag::On);
        if (!found.empty()) window_.View.EnsureVisible(found.front());
    }
    window_.ShowSelectedCount();
    ui_->Number->setText(QString::number(rows.SelectedCount()));
}

void frmSearch::btnGroup_Click() {
    if (!Progress::Running()) window_.submnuGroup_Click();
}

void frmSearch::btnClose_Click() { Forms::Instance().Unload(objectName()); }

// What the controls leave over: Enter searches wherever it presses no button.
void frmSearch::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        btnSearch_Click();
    else if (key == Qt::Key_Escape)
        btnClose_Click();
    else
        Form::keyPressEvent(event);
}

} // namespace calyvox
