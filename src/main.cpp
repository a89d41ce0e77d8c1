// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/Version.h"
#include "app/forms/Display.h"
#include "app/forms/Forms.h"
#include "app/forms/SvgIcon.h"
#include "app/forms/Termination.h"
#include "app/forms/WindowServices.h"
#include "app/forms/frmErrors.h"
#include "app/forms/frmProgress.h"
#include "app/forms/frmWelcome.h"
#include "app/modBase.h"
#include "app/modReport.h"
#include "automation/MassUpdate.h"
#include "automation/forms/OutsideCommands.h"
#include "automation/forms/frmMassUpdate.h"
#include "automation/forms/frmOptions.h"
#include "editors/forms/frmCOMMEdit.h"
#include "editors/forms/frmID3V1.h"
#include "editors/forms/frmID3V2.h"
#include "editors/forms/frmID3V2Genre.h"
#include "engine/Tables.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/forms/frmMain.h"
#include "massops/forms/frmSearch.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"
#include "platform/HostPath.h"

#include <QApplication>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

// Resources of a static library come in only if they are asked for, outside any namespace.
static void InitResources() { Q_INIT_RESOURCE(icons); }

using namespace calyvox;

namespace {

constexpr const char* kUsage = "Usage: calyvox [/I=DATAFILE] [/A=TRUE] [/P=FOLDER] [/S=NO]\n"
                               "Edits the tags of MP3 files.\n"
                               "\n"
                               "  /I=DATAFILE  change tags as the data file says, see calyvox(1)\n"
                               "  /A=TRUE      start at once, and end by itself where there are no errors\n"
                               "  /P=FOLDER    the folder, or the file in it, to show at the start\n"
                               "  /S=NO        do not keep the folder for the next start\n"
                               "  --help       print this text\n"
                               "  --version    print the version\n";

// The switches that answer without a display and without settings; true if there was one.
bool AnsweredAtOnce(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--help") == 0) return std::fputs(kUsage, stdout) >= 0;
        if (std::strcmp(argv[i], "--version") == 0) return std::printf("calyvox %s\n", kVersion) >= 0;
    }
    return false;
}

SettingsEnvironment Environment() {
    const std::string program = FileSystem::ProgramFile();
    const std::size_t name = program.rfind('\\') + 1;
    SettingsEnvironment environment;
    environment.ProgramFolder = program.substr(0, name > 1 ? name - 1 : name);
    environment.ProgramName = program.substr(name);
    Skip([&] { environment.CurrentFolder = FileSystem::CurrentFolder(); });
    return environment;
}

// One line for whoever started the process: the path as shown, the result, and a star for an error. A tab or
// a line feed in a name would be taken for the line's own.
void PrintRow(const RowList::Row& row) {
    std::string path = HostPath::Shown(row.Text);
    std::replace_if(
        path.begin(), path.end(), [](unsigned char c) { return c < ' '; }, '?');
    std::printf("%s\t%s%s\n", path.c_str(), RowList::Cell(row, 1).c_str(), row.Bold ? "\t*" : "");
    std::fflush(stdout);
}

// Standard error is for the program's own boxes; what Qt says of a platform without windows helps nobody.
void DropQtMessages(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

void RegisterForms(bool display, int& exitStatus) {
    Forms& forms = Forms::Instance();
    forms.Register(QStringLiteral("frmWelcome"), [] { return new frmWelcome; });
    forms.Register(QStringLiteral("frmProgress"), [] { return new frmProgress; });
    forms.Register(QStringLiteral("frmErrors"), [] { return new frmErrors; });
    forms.Register(QStringLiteral("frmMain"), [&exitStatus] {
        auto* form = new frmMain([&exitStatus] { QCoreApplication::exit(exitStatus); });
        TheMainWindow().Commands.SetHandler("submnuSearch", frmSearch::submnuSearch);
        RegisterOutsideCommands(TheMainWindow().Commands);
        return form;
    });
    forms.Register(QStringLiteral("frmID3V1"), [] { return new frmID3V1; });
    forms.Register(QStringLiteral("frmID3V2"), [] { return new frmID3V2; });
    forms.Register(QStringLiteral("frmCOMMEdit"), [] { return new frmCOMMEdit; });
    forms.Register(QStringLiteral("frmID3V2Genre"), [] { return new frmID3V2Genre; });
    forms.Register(QStringLiteral("frmSearch"), [] { return new frmSearch; });
    forms.Register(QStringLiteral("frmOptions"), [] { return new frmOptions; });
    forms.Register(QStringLiteral("frmMassUpdate"), [display, &exitStatus] {
        frmMassUpdate::Surroundings surroundings;
        surroundings.SetExitStatus = [&exitStatus](int status) { exitStatus = status; };
        surroundings.Unattended = !display;
        if (!display) surroundings.RowDone = PrintRow;
        return new frmMassUpdate(std::move(surroundings));
    });
}

void ShowWelcome() {
    const QString name = QStringLiteral("frmWelcome");
    Forms::Instance().Show(name);
    auto* welcome = static_cast<frmWelcome*>(Forms::Instance().Touch(name));
    welcome->SetVersionText(frmWelcome::VersionText());
    welcome->SetStatusText(QStringLiteral("Getting parameters and settings"));
    TheServices().Yield();
}

// The order of the start. The last form that it loads keeps the process alive.
void Start(const std::vector<std::string>& hostArguments, bool display, int& exitStatus,
           std::optional<Termination>& termination) {
    ShowWelcome();
    const SettingsEnvironment environment = Environment();
    CheckRegSettings(environment);
    ReportLine("modBase.main: Preparing Genres");
    BuildTables();
    ReportLine("modBase.main: Checking Command Line");
    modBase::CommandLine.Resolve(
        CommandText(hostArguments, HostPath::ToHostFolder(environment.CurrentFolder)));
    if (!modBase::CommandLine.DataFilePath().empty()) {
        Forms::Instance().Unload(QStringLiteral("frmWelcome"));
        Forms::Instance().Touch(QStringLiteral("frmMassUpdate"));
        return;
    }
    if (!display) {
        exitStatus = ExitStatus::kCouldNotStart;
        modBase::ShowMessage("There is no display for a window. Without one, name a data file with "
                             "/I=DATAFILE.",
                             MsgBox::kExclamation, "Calyvox");
        Forms::Instance().Unload(QStringLiteral("frmWelcome"));
        return;
    }
    ReportLine("modBase.main: Loading Form");
    const QString mainForm = QStringLiteral("frmMain");
    termination.emplace([=] {
        if (Forms::Instance().UnloadModal()) Forms::Instance().Unload(mainForm);
    });
    Forms::Instance().Touch(mainForm);
}

} // namespace

int main(int argc, char** argv) {
    if (AnsweredAtOnce(argc, argv)) return 0;
    const std::vector<std::string> hostArguments(argv + 1, argv + argc);
    std::signal(SIGPIPE, SIG_IGN); // a reader that goes away does not end the run
    const bool display = calyvox::Display::IsUsable();
    if (!display) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(DropQtMessages);
    }
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("calyvox"));
    QApplication::setApplicationVersion(QLatin1String(kVersion));
    QApplication::setQuitOnLastWindowClosed(false);
    InitResources();
    QApplication::setWindowIcon(SvgIcon(QStringLiteral(":/icons/calyvox.svg")));

    int exitStatus = ExitStatus::kNoErrors;
    InstallServices(display);
    modBase::ConnectEngine();
    RegisterForms(display, exitStatus);
    std::optional<Termination> termination;
    try {
        Start(hostArguments, display, exitStatus, termination);
    } catch (const Failure& failure) {
        modBase::ShowMessage(failure.Text(), MsgBox::kCritical, "Calyvox");
        return ExitStatus::kCouldNotStart;
    }
    if (!Forms::Instance().AnyLoaded()) return exitStatus;
    Forms::Instance().SetLastFormGone([&exitStatus] { QCoreApplication::exit(exitStatus); });
    return QApplication::exec();
}
