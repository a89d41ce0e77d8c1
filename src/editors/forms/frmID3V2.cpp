// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/forms/frmID3V2.h"

#include "app/IniFile.h"
#include "app/SettingsCatalogue.h"
#include "app/forms/Dialogs.h"
#include "app/forms/Forms.h"
#include "app/forms/TagInput.h"
#include "app/modBase.h"
#include "editors/GenreCatalogue.h"
#include "editors/GenreRows.h"
#include "editors/ID3V1Exchange.h"
#include "editors/LanguageList.h"
#include "mainwindow/MainWindow.h"
#include "ui_frmID3V2.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace calyvox {

namespace {

using Step = SteppingKeys::Step;

const QString kOwner = QStringLiteral("frmMain");

bool IsPrintable(const QKeyEvent& key) {
    const bool command = (key.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
    return !command && !key.text().isEmpty() && key.text().at(0).isPrint();
}

bool IsDigitsOrSlash(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c >= QLatin1Char('/') && c <= QLatin1Char('9'); });
}

// The standard genres below an empty row, unless the own ones are to stand alone.
std::vector<std::string> OfferedGenres() {
    std::vector<std::string> rows;
    if (ReadSetting("Settings\\OwnGenreOnly") != "1") {
        for (const GenreRow& row : GenreRows())
            rows.push_back(row.Name);
        rows.front().clear();
    }
    for (const std::string& name : GenreCatalogue::Names(IniFilePath()))
        rows.push_back(name);
    return rows;
}

} // namespace

frmID3V2::frmID3V2()
    : window_(TheMainWindow()), genres_(fields_.GenreList, {QStringLiteral("Genre")}),
      comments_(fields_.COMMList,
                {QStringLiteral("Descriptor"), QStringLiteral("Language"), QStringLiteral("Comment")}),
      addresses_(fields_.CommInfoList, {QStringLiteral("URL")}),
      ratings_(fields_.POPMList,
               {QStringLiteral("User (email)"), QStringLiteral("Rating"), QStringLiteral("Counter")}),
      unsupported_(fields_.SupportList, {QStringLiteral("Frame-ID"), QStringLiteral("Content")}),
      ui_(std::make_unique<Ui::frmID3V2>()) {
    ui_->setupUi(this);
    CollectBoxes();
    FillRows();
    PrepareLists();
    ConnectLists();
    ConnectButtons();
    for (QWidget* control : findChildren<QWidget*>())
        control->installEventFilter(this);
    installEventFilter(this);
}

frmID3V2::~frmID3V2() = default;

// A box bears the name of its frame, or is part of a combo box that does.
void frmID3V2::CollectBoxes() {
    const std::array<QObject*, 4> others = {ui_->SelectedFile, ui_->Format, ui_->TCON, ui_->WCOM};
    for (QLineEdit* box : findChildren<QLineEdit*>()) {
        auto* const combo = qobject_cast<QComboBox*>(box->parentWidget());
        QWidget* const control = combo ? static_cast<QWidget*>(combo) : box;
        if (std::find(others.begin(), others.end(), control) != others.end()) continue;
        boxes_.emplace_back(control->objectName().toStdString(), box);
        if (combo) connect(combo, &QComboBox::activated, box, [box] { box->setModified(true); });
        if (control != ui_->TCONSingle) TagInput::HoldToCodePage(*box);
    }
    TagInput::HoldToCodePage(*ui_->WCOM);
    for (QLineEdit* box : {ui_->TRCK, ui_->TRCKTotal, ui_->TPOSTotal, ui_->TYER, ui_->TORY})
        TagInput::HoldToDigits(*box);
}

void frmID3V2::FillRows() {
    ui_->TMED->setCompleter(nullptr);
    for (const std::string_view row : LanguageRows())
        ui_->Language->addItem(Dialogs::TagText(std::string(row)));
    ui_->Language->setCurrentIndex(static_cast<int>(fields_.Language));
    connect(ui_->Language, &QComboBox::currentIndexChanged, this,
            [this](int row) { fields_.Language = static_cast<std::size_t>(row); });
}

void frmID3V2::ConnectButtons() {
    connect(ui_->btnOK, &QPushButton::clicked, this, &frmID3V2::btnOK_Click);
    connect(ui_->btnCancel, &QPushButton::clicked, this, &frmID3V2::btnCancel_Click);
    connect(ui_->btnBack, &QPushButton::clicked, this, [this] { StepBy(Step::Back); });
    connect(ui_->btnNext, &QPushButton::clicked, this, [this] { StepBy(Step::Next); });
    const std::array<QPushButton*, 9> fromID3V1 = {ui_->ID3V1_0, ui_->ID3V1_1, ui_->ID3V1_2,
                                                   ui_->ID3V1_3, ui_->ID3V1_4, ui_->ID3V1_5,
                                                   ui_->ID3V1_6, ui_->ID3V1_7, ui_->ID3V1_8};
    for (int button = 0; button < static_cast<int>(fromID3V1.size()); ++button)
        connect(fromID3V1.at(static_cast<std::size_t>(button)), &QPushButton::clicked, this, [this, button] {
            Exchange(
                [&](std::size_t row) { ID3V1Exchange::ID3V1_Click(button, window_.FileOf(row), fields_); });
        });
    connect(ui_->btnImport, &QPushButton::clicked, this, [this] {
        Exchange([&](std::size_t row) { ID3V1Exchange::btnImport_Click(window_.FileOf(row), fields_); });
    });
    connect(ui_->btnExport, &QPushButton::clicked, this, [this] {
        Exchange([&](std::size_t row) { ID3V1Exchange::btnExport_Click(fields_, window_, row); });
    });
}

void frmID3V2::Load() {
    Forms::Instance().SetFormOwner(*this, kOwner);
    const std::vector<std::string> genres = OfferedGenres();
    ui_->TCON->SetRows(genres);
    ui_->TCONSingle->SetRows(genres);
    ChooseLayout();
    Dialogs::LoadDialogPosition(*this);
    LoadTag();
    FocusTab();
}

bool frmID3V2::Unload() {
    Dialogs::SaveDialogPosition(*this);
    return true;
}

void frmID3V2::ChooseLayout() {
    const bool single = modBase::SingleCOMMGenre();
    ui_->Frame_2->setVisible(single);
    ui_->Frame_3->setVisible(!single);
    ui_->Frame_5->setVisible(!single);
    for (QLabel* label : {ui_->TPE1Label, ui_->TCONLabel, ui_->TCONSingleLabel})
        label->setMinimumWidth(ui_->DescriptorLabel->sizeHint().width());
}

void frmID3V2::LoadTag() {
    const std::size_t row = window_.FileList.Current();
    fields_.ClearControls();
    if (row != RowList::kNone) Dialogs::Guarded([&] { fields_.LoadTag(window_, row); });
    ui_->SelectedFile->setText(Dialogs::NameText(fields_.Text("SelectedFile")));
    ui_->TCON->lineEdit()->clear();
    ui_->WCOM->clear();
    ShowTexts();
    ui_->UnicodeNote->setVisible(fields_.HoldsUnicode());
}

// What nobody changed stays as it was loaded, whatever the boxes can show.
void frmID3V2::TakeTexts() {
    for (const auto& [name, box] : boxes_)
        if (box->isModified()) fields_.SetText(name, Dialogs::TagBytes(box->text()));
}

void frmID3V2::ShowTexts() {
    for (const auto& [name, box] : boxes_) {
        box->setText(Dialogs::TagText(fields_.Text(name)));
        box->home(false);
    }
    // Where the arrow keys go on from.
    for (QComboBox* const list : {static_cast<QComboBox*>(ui_->TCONSingle), ui_->TMED}) {
        const QString text = list->currentText();
        list->setCurrentIndex(list->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive));
        list->lineEdit()->setText(text);
        list->lineEdit()->home(false);
    }
    ui_->Language->setCurrentIndex(static_cast<int>(fields_.Language));
    for (RowListModel* model : {&genres_, &comments_, &addresses_, &ratings_, &unsupported_})
        model->Flush();
}

void frmID3V2::Exchange(const std::function<void(std::size_t row)>& exchange) {
    const std::size_t row = window_.FileList.Current();
    if (row == RowList::kNone) return;
    TakeTexts();
    Dialogs::Guarded([&] { exchange(row); });
    ShowTexts();
}

void frmID3V2::StepBy(Step step) {
    const std::size_t target = SteppingKeys::Target(window_, step);
    if (target == RowList::kNone) return;
    Dialogs::Guarded([&] {
        TakeTexts();
        fields_.SaveTag(window_, window_.FileList.Current());
        SteppingKeys::GoTo(window_, target);
        LoadTag();
        FocusTab();
    });
}

void frmID3V2::FocusTab() {
    const std::array<QWidget*, 5> first = {ui_->TPE1, ui_->TPE2, ui_->TDAT, ui_->TBPM, ui_->SupportList};
    QWidget* const control = first.at(static_cast<std::size_t>(ui_->ID3V2->currentIndex()));
    control->setFocus();
    if (auto* const box = qobject_cast<QLineEdit*>(control)) box->selectAll();
}

void frmID3V2::btnOK_Click() {
    Dialogs::Guarded([&] {
        const std::size_t row = window_.FileList.Current();
        TakeTexts();
        if (row != RowList::kNone) fields_.btnOK_Click(window_, row);
        Forms::Instance().Unload(objectName());
    });
}

// What stepping has saved stays saved.
void frmID3V2::btnCancel_Click() { Forms::Instance().Unload(objectName(), UnloadReason::CloseBox); }

bool frmID3V2::QueryUnload(UnloadReason reason) {
    const std::size_t row = window_.FileList.Current();
    if (reason == UnloadReason::CloseBox && row != RowList::kNone)
        Dialogs::Guarded([&] { ID3V2Fields::btnCancel_Click(window_.FileOf(row)); });
    return true;
}

// Keys reach the form before its controls.
bool frmID3V2::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched == ui_->COMMList->viewport())
        commListX_ = static_cast<QMouseEvent*>(event)->pos().x();
    // The wheel scrolls and changes nothing by the way.
    const auto* const list = qobject_cast<const QComboBox*>(watched);
    if (event->type() == QEvent::Wheel && list && !list->hasFocus()) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::KeyPress) return KeyDown(watched, *static_cast<QKeyEvent*>(event));
    if (event->type() != QEvent::KeyRelease) return Form::eventFilter(watched, event);
    const Step step = steppingKeys_.KeyUp(*static_cast<QKeyEvent*>(event));
    StepBy(step);
    return step != Step::None;
}

// A combo box would hand its keys on past whoever watches its line.
bool frmID3V2::KeyDown(QObject* control, QKeyEvent& key) {
    steppingKeys_.KeyDown(key);
    if (key.key() == Qt::Key_Escape) {
        btnCancel_Click();
        return true;
    }
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        auto* const button = qobject_cast<QPushButton*>(control);
        if (!qobject_cast<QAbstractItemView*>(control)) (button ? button : ui_->btnOK)->click();
        return true;
    }
    if (!IsPrintable(key)) return false;
    if (control == ui_->TPOS) return !IsDigitsOrSlash(key.text());
    return control == ui_->TMED && QCoreApplication::sendEvent(ui_->TMED->lineEdit(), &key);
}

} // namespace calyvox
