// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/forms/frmMain.h"

#include "app/Progress.h"
#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/clsRegistry.h"
#include "app/forms/Dialogs.h"
#include "app/forms/Forms.h"
#include "app/modBase.h"
#include "app/modReport.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/Passes.h"
#include "mainwindow/Renaming.h"
#include "mainwindow/RowCells.h"
#include "mainwindow/ScannerKeys.h"
#include "mainwindow/StartFolder.h"
#include "mainwindow/forms/CommandBars.h"
#include "mainwindow/forms/ElidedLabel.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"
#include "ui_frmMain.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <vector>

// Resources of a static library come in only if they are asked for, outside any namespace.
static void InitResources() { Q_INIT_RESOURCE(icons); }

namespace calyvox {

namespace {

constexpr int kDesignTreeWidth = 200;
constexpr int kLeastTreeWidth = 60;
constexpr int kTwips = Dialogs::kTwips;
constexpr int kColumnCount = static_cast<int>(RowCells::kColumns);

QStringList Captions() {
    QStringList captions;
    for (const std::string_view caption : RowCells::kCaptions)
        captions << QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()));
    return captions;
}

void Welcome(const char* status) {
    TheServices().WelcomeStatus(status);
    TheServices().Yield();
}

} // namespace

frmMain::frmMain(std::function<void()> endProcess)
    : ui_(std::make_unique<Ui::frmMain>()), endProcess_(std::move(endProcess)), window_(TheMainWindow()),
      rows_(window_.FileList, Captions()) {
    InitResources();
    ui_->setupUi(this);
    auto* menuBar = new QMenuBar(this);
    ui_->layout->setMenuBar(menuBar);
    rows_.SetAlignment(RowCells::kTrack, Qt::AlignRight);
    rows_.SetEditable(true);
    ui_->FileList->SetRows(rows_);
    ui_->FileList->setContextMenuPolicy(Qt::CustomContextMenu);
    ui_->TreeViewContainer->setMinimumWidth(kLeastTreeWidth);
    ui_->Splitter->setSizes({kDesignTreeWidth, width() - kDesignTreeWidth});
    ui_->Splitter->setStretchFactor(1, 1);
    ui_->StatusBar->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // its texts widen no window
    MakePanels();
    ConnectView();
    ConnectCommands();
    bars_ = std::make_unique<CommandBars>(window_, *this, *menuBar, *ui_->Toolbar);
    ConnectControls();
}

frmMain::~frmMain() {
    window_.View = {};
    window_.Commands = {};
}

void frmMain::MakePanels() {
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        constexpr std::size_t kPath = 2;
        panels_.at(i) = i == kPath ? new ElidedLabel(this) : new QLabel(this);
        panels_.at(i)->setObjectName(QStringLiteral("Panel%1").arg(i + 1));
        panels_.at(i)->setTextFormat(Qt::PlainText);
        panels_.at(i)->setFrameStyle(static_cast<int>(QFrame::StyledPanel) |
                                     static_cast<int>(QFrame::Sunken));
        panels_.at(i)->setMargin(1);
        ui_->StatusBar->addWidget(panels_.at(i), i == kPath ? 1 : 0);
    }
    panels_[5]->setText(QStringLiteral("NUM"));
    panels_[6]->setText(QStringLiteral("FEST"));
    panels_[7]->setText(QStringLiteral("EINFG"));
    ShowLockKeys();
    qApp->installEventFilter(this);
}

void frmMain::ConnectView() {
    MainWindowView& view = window_.View;
    view.SetCaption = [this](const std::string& text) { setWindowTitle(Dialogs::TagText(text)); };
    view.SetRepainting = [this](bool on) { ui_->FileListContainer->setUpdatesEnabled(on); };
    // What is disabled loses the keyboard, and does not get it back by itself.
    view.SetTreeEnabled = [this](bool enabled) {
        const bool hadFocus = treeHadFocus_ || focusWidget() == ui_->TreeView;
        treeHadFocus_ = hadFocus && !enabled;
        ui_->TreeViewContainer->setEnabled(enabled);
        if (enabled && hadFocus) ui_->TreeView->setFocus();
    };
    view.RefreshTree = [this] { ui_->TreeView->Refresh(); };
    view.PanelChanged = [this](int panel) { ShowPanel(panel); };
    view.RefreshList = [this] {
        rows_.Flush();
        ui_->FileList->viewport()->update();
    };
    view.EnsureVisible = [this](std::size_t row) { ui_->FileList->EnsureVisible(row); };
    view.ShowHeaderIcon = [this](std::size_t column, bool ascending) {
        ShowHeaderIcon(static_cast<int>(column), ascending);
    };
    view.ListViewVisibleRows = [this] { return static_cast<std::size_t>(ui_->FileList->VisibleRows(true)); };
    view.ColumnOrder = [this] {
        std::vector<std::size_t> order(RowCells::kColumns);
        for (int visual = 0; visual < kColumnCount; ++visual)
            order[static_cast<std::size_t>(visual)] =
                static_cast<std::size_t>(ui_->FileList->header()->logicalIndex(visual));
        return order;
    };
}

void frmMain::ConnectCommands() {
    CommandRunner& commands = window_.Commands;
    commands.CheckSelection = [this] { return window_.CheckSelection(); };
    commands.Prepare = [this] { CloseEdit(); };
    commands.IsFormKnown = [](std::string_view form) {
        return Forms::Instance().IsRegistered(QString::fromLatin1(form.data(), qsizetype(form.size())));
    };
    commands.ShowForm = [this](std::string_view form) {
        Forms::Instance().ShowModal(QString::fromLatin1(form.data(), qsizetype(form.size())), objectName());
    };
    const auto handle = [&](const char* name, auto handler) { commands.SetHandler(name, handler); };
    MainOptions& options = window_.Options;
    handle("submnuRefresh", [this] { window_.submnuRefresh(); });
    handle("submnuSave", [this] { window_.submnuSave(); });
    handle("submnuSelAll", [this] { window_.FileList.SelectAll(RowList::Flag::On); });
    handle("submnuInvert", [this] { window_.FileList.SelectAll(RowList::Flag::Flip); });
    handle("submnuGroup", [this] { window_.submnuGroup_Click(); });
    handle("submnuDelete", [this] { Passes::MenuDelete(window_); });
    handle("submnuUNTAGV1", [this] { Passes::RemoveID3V1(window_); });
    handle("submnuUNTAGV2", [this] { Passes::RemoveID3V2(window_); });
    handle("submnuQuit", [this] { submnuQuit(); });
    handle("submnuAbout", [] { MainWindow::submnuAbout(); });
    handle("submnuSubDir", [this] { window_.submnuSubDir(); });
    handle("submnuQuickEdit", [&options] { options.submnuQuickEdit(); });
    handle("submnuNotSave", [&options] { options.submnuNotSave(); });
    handle("submnuSingleCOMMGenre", [&options] { options.submnuSingleCOMMGenre(); });
    handle("submnuUnSync", [&options] { options.submnuUnSync(); });
    handle("View", [this] { window_.SwitchView(); });
    handle("CLSDFOLD", [this] { ToggleTree(); });
    for (const int index : {0, 1}) {
        const auto item = [=](const char* name) { return name + ("(" + std::to_string(index) + ")"); };
        handle(item("submnuID3Ver").c_str(), [=, &options] { options.submnuID3Ver(index); });
        handle(item("submnudbl").c_str(), [=, &options] { options.DoubleClick = index + 1; });
        handle(item("submnuToolbar").c_str(), [=, this] { PlaceToolbar(index + 1); });
    }
}

void frmMain::ConnectControls() {
    connect(ui_->FileList, &RowListView::UserActed, this, [this] {
        window_.ShowSelectedCount();
        window_.ShowNameLength();
    });
    connect(&rows_, &RowListModel::RowsSelectionChanged, this, [this] { window_.ShowSelectedCount(); });
    connect(ui_->FileList, &RowListView::RowDoubleClicked, this, &frmMain::OpenEditor);
    ui_->TreeView->SetBeforeChange([this](const std::string&) {
        bool changes = false;
        CloseEdit();
        Dialogs::Guarded([&] { changes = !Progress::Running() && window_.BeforeFolderChange(); });
        return changes;
    });
    connect(&rows_, &RowListModel::TextEdited, this, [this](int row, const QString& text) {
        edited_.emplace(static_cast<std::size_t>(row), Dialogs::NameBytes(text));
        QMetaObject::invokeMethod(
            this, [this] { Dialogs::Guarded([this] { FinishEdit(); }); }, Qt::QueuedConnection);
    });
    connect(ui_->FileList, &QWidget::customContextMenuRequested, this, [this](QPoint place) {
        bars_->Menu("mnuFunctions").popup(ui_->FileList->viewport()->mapToGlobal(place));
    });
    connect(ui_->FileList->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        CloseEdit();
        Dialogs::Guarded([&] { window_.ColumnClick(static_cast<std::size_t>(column)); });
    });
    ui_->TreeView->SetRename([this](const std::string& path, const std::string& name) {
        return !Progress::Running() && Renaming::AfterFolderRename(window_, path, name);
    });
    connect(ui_->TreeView, &FolderView::Changed, this,
            [this](const std::string& path) { Skip([&] { window_.FolderChanged(path); }); });
}

// Whatever fails on the way leaves its control as it was and does not stop the start.
void frmMain::Load() {
    ReportLine("frmmain.load: Preparing form");
    window_.TreeBusy = true;
    Welcome("Preparing controls");
    Skip([&] { LoadSettings(); });
    Skip([&] { LoadColumns(); });
    Welcome("Getting start directory");
    FindFolder();
    Welcome("Getting files");
    TheServices().UnloadWelcome();
    Skip([&] { window_.FileListRefresh(); });
    window_.ShowFolder();
    Skip([&] { SelectStartFile(); });
    Skip([&] { LoadDatabaseMenu(); });
    ShowHeaderIcon(0, true);
    if (NumberSetting("Settings\\Foldertree") == 0) HideTree();
    Forms::Instance().Touch(QStringLiteral("frmErrors"));
    window_.TreeBusy = false;
    bars_->Update();
    show();
    ReportLine("frmmain.load - Load finished");
}

void frmMain::LoadSettings() {
    QRect place = geometry();
    if (const auto left = NumberSetting("Settings\\WindowLeft")) place.moveLeft(*left / kTwips);
    if (const auto top = NumberSetting("Settings\\WindowTop")) place.moveTop(*top / kTwips);
    if (const auto width = NumberSetting("Settings\\WindowWidth")) place.setWidth(*width / kTwips);
    if (const auto height = NumberSetting("Settings\\WindowHeight")) place.setHeight(*height / kTwips);
    resize(place.size());
    Dialogs::Place(*this, place.topLeft());
    window_.Options.Load();
    PlaceToolbar(window_.Options.ToolPos);
    window_.SetPanel(5, window_.Options.SubDir ? "Subdir.: Yes" : "Subdir.: No");
    bars_->Update();
}

// A column whose place is not stored keeps its own; of two with the same place the first comes first.
void frmMain::LoadColumns() {
    QHeaderView* header = ui_->FileList->header();
    std::vector<std::pair<int, int>> places;
    for (int column = 0; column < kColumnCount; ++column) {
        const auto place = NumberSetting(ColumnSetting("Settings\\ColPos", column + 1));
        places.emplace_back(place.value_or(column + 1), column);
        const auto width = NumberSetting(ColumnSetting("Settings\\ColWidth", column + 1));
        if (width && *width >= 0) header->resizeSection(column, *width / kTwips);
    }
    std::sort(places.begin(), places.end());
    for (int visual = 0; visual < kColumnCount; ++visual)
        header->moveSection(header->visualIndex(places[static_cast<std::size_t>(visual)].second), visual);
}

void frmMain::FindFolder() {
    Skip([] { modBase::ActivPath = FileSystem::CurrentFolder(); });
    Skip([] { modBase::ActivPath = FindStartFolder(); });
    ui_->TreeView->SelectPath(modBase::ActivPath);
}

void frmMain::SelectStartFile() {
    std::string name = modBase::CommandLine.Filename();
    if (name.empty()) return;
    if (CodePage::EndsWithNoCase(name, ".mp3")) name.resize(name.size() - 4);
    RowList& rows = window_.FileList;
    std::size_t found = RowList::kNone;
    int best = -1; // the folder's own file, and the letter case as it is, go before others
    for (std::size_t row = 0; row < rows.Count(); ++row) {
        const RowList::Row& one = rows.At(row);
        if (!CodePage::EqualNoCase(one.Text, name)) continue;
        const int rank =
            (RowList::Cell(one, RowCells::kSubdirectory).empty() ? 2 : 0) + (one.Text == name ? 1 : 0);
        if (rank <= best) continue;
        best = rank;
        found = row;
    }
    if (found == RowList::kNone) return;
    rows.SelectOnly(found, found);
    rows.SetCurrent(found);
    ui_->FileList->EnsureVisible(found);
}

void frmMain::LoadDatabaseMenu() {
    QMenu& menu = bars_->Menu("mnuMS");
    menu.menuAction()->setVisible(false);
    for (const auto& [key, product] : kScannerKeys) {
        clsRegistry registry;
        registry.SetKey(key);
        if (!registry.KeyExists()) continue;
        menu.setTitle(QString::fromLatin1(product));
        menu.menuAction()->setVisible(true);
        return;
    }
    window_.Commands.SetHandler("submnuAddDB", {}); // nor does its key do anything
}

bool frmMain::QueryUnload(UnloadReason) { return !Progress::Running(); }

bool frmMain::Unload() {
    CloseEdit();
    Forms::Instance().Unload(QStringLiteral("frmSearch"));
    Forms::Instance().Unload(QStringLiteral("frmErrors"));
    bool goes = false;
    Dialogs::Guarded([&] { goes = window_.SaveQuestion(false); });
    if (!goes) return false;
    Dialogs::Guarded([&] { WriteTogether([&] { SaveSettings(); }); });
    window_.FileList.Clear();
    modBase::LoadedMP3s = std::make_unique<MP3s>();
    return true;
}

void frmMain::SaveSettings() const {
    if (!window_.Options.NotSave && modBase::CommandLine.Save()) {
        const std::string& folder = modBase::ActivPath;
        WriteSetting("Parameter\\StartPath", folder.empty() ? "\\" : folder, RegistryStore::kText);
    }
    SaveColumns();
    WriteNumber("Settings\\VerShow", modBase::VerShow);
    if (Dialogs::PlacesAreKnown()) {
        WriteNumber("Settings\\WindowLeft", geometry().x() * kTwips);
        WriteNumber("Settings\\WindowTop", geometry().y() * kTwips);
    }
    WriteNumber("Settings\\WindowWidth", width() * kTwips);
    WriteNumber("Settings\\WindowHeight", height() * kTwips);
    window_.Options.Save();
    WriteNumber("Settings\\Foldertree", IsTreeShown() ? 1 : 0);
}

void frmMain::SaveColumns() const {
    const QHeaderView* header = ui_->FileList->header();
    for (int column = 0; column < kColumnCount; ++column) {
        WriteNumber(ColumnSetting("Settings\\ColPos", column + 1), header->visualIndex(column) + 1);
        WriteNumber(ColumnSetting("Settings\\ColWidth", column + 1), header->sectionSize(column) * kTwips);
    }
}

void frmMain::Activated() { window_.Activated(); }

// Only now the list knows how many rows it has room for.
void frmMain::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    if (std::exchange(wasShown_, true)) return;
    ui_->FileList->setFocus();
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (window_.FileList.SelectedCount() > 0)
                ui_->FileList->EnsureVisible(window_.FileList.Current());
        },
        Qt::QueuedConnection);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowActivate) ShowLockKeys();
    if (watched == ui_->FileList && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (enter && key->modifiers() == Qt::ControlModifier) {
            window_.ShowSelectedCount();
            window_.ShowNameLength();
            OpenEditorOfSelection();
            return true;
        }
    }
    if (event->type() == QEvent::KeyRelease) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_NumLock || key == Qt::Key_CapsLock) ShowLockKeys();
    }
    return Form::eventFilter(watched, event);
}

void frmMain::ShowLockKeys() {
    const auto keys = lockKeys_.Read();
    panels_[5]->setEnabled(keys && keys->Num);
    panels_[6]->setEnabled(keys && keys->Caps);
    panels_[7]->setEnabled(false);
}

void frmMain::ShowPanel(int panel) {
    panels_.at(static_cast<std::size_t>(panel - 1))->setText(Dialogs::NameText(window_.Panel(panel)));
}

void frmMain::PlaceToolbar(int position) {
    window_.Options.ToolPos = position;
    constexpr int kBelowList = 1;
    ui_->layout->removeWidget(ui_->CoolBar);
    ui_->layout->insertWidget(position == 1 ? 0 : kBelowList, ui_->CoolBar);
}

void frmMain::ShowHeaderIcon(int column, bool ascending) {
    ui_->FileList->header()->setSortIndicator(column, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

bool frmMain::IsTreeShown() const { return !ui_->TreeViewContainer->isHidden(); }

void frmMain::HideTree() {
    treeWidth_ = wasShown_ ? ui_->Splitter->sizes().constFirst() : kDesignTreeWidth;
    ui_->TreeViewContainer->hide();
}

void frmMain::ToggleTree() {
    if (IsTreeShown()) {
        HideTree();
        return;
    }
    ui_->TreeViewContainer->show();
    ui_->Splitter->setSizes({treeWidth_, ui_->Splitter->width() - treeWidth_});
}

void frmMain::CloseEdit() {
    Dialogs::Guarded([this] {
        ui_->FileList->CloseEditor();
        FinishEdit();
        ui_->TreeView->CloseEditor();
    });
}

// Boxes and the next edit come when the edit box has gone. A box that was left with its text unchanged has
// renamed nothing, and only Enter goes on to the next row.
void frmMain::FinishEdit() {
    if (!edited_) return;
    const auto [row, name] = *std::exchange(edited_, std::nullopt);
    const RowListView::EditEnd end = ui_->FileList->LastEdit();
    if (Progress::Running() || row >= window_.FileList.Count() || end == RowListView::EditEnd::LeftUnchanged)
        return;
    const bool goesOn = Renaming::AfterLabelEdit(window_, row, name);
    if (!goesOn || end != RowListView::EditEnd::Entered) return;
    if (window_.FileList.SelectedCount() <= 1) window_.FileList.SelectOnly(row + 1, row + 1);
    window_.FileList.SetCurrent(row + 1);
    ui_->FileList->EnsureVisible(row + 1);
    ui_->FileList->EditRow(static_cast<int>(row) + 1);
}

QString frmMain::EditorForm() const {
    return window_.Options.DoubleClick == 1 ? QStringLiteral("frmID3V1") : QStringLiteral("frmID3V2");
}

// Ctrl+Enter opens the editor of many files where more than one is selected.
void frmMain::OpenEditorOfSelection() {
    CloseEdit();
    const bool many = window_.ListViewSelectedCount() >= 2;
    Forms::Instance().ShowModal(EditorForm() + (many ? QStringLiteral("Multi") : QString()), objectName());
}

// Never the editor of many files, however many are selected.
void frmMain::OpenEditor() {
    CloseEdit();
    if (Progress::Running() || !window_.CheckSelection()) return;
    Forms::Instance().ShowModal(EditorForm(), objectName());
}

// The process ends even where the question was answered with Cancel.
void frmMain::submnuQuit() {
    Forms::Instance().Unload(objectName());
    endProcess_();
}

} // namespace calyvox
