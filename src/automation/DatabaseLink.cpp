// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "automation/DatabaseLink.h"

#include "app/Progress.h"
#include "app/Services.h"
#include "app/clsRegistry.h"
#include "app/modBase.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/Renaming.h"
#include "mainwindow/ScannerKeys.h"
#include "platform/BinaryFile.h"
#include "platform/FileSystem.h"
#include "platform/HostPath.h"
#include "platform/Shell.h"

namespace calyvox {

namespace {

std::string ScannerPath() {
    for (const ScannerKey& scanner : kScannerKeys) {
        clsRegistry registry;
        registry.SetKey(scanner.Key);
        if (registry.KeyExists()) return registry.getValue();
    }
    return {};
}

// A path with blanks stands there without quotes: the program is the shortest part before a blank that is a
// file, and arguments may follow it.
std::vector<std::string> CommandOf(const std::string& scanner) {
    for (std::size_t end = 0; end != std::string::npos;) {
        end = scanner.find(' ', end + 1);
        const std::string program = scanner.substr(0, end);
        if (!FileSystem::FileExists(program)) continue;
        std::vector<std::string> command =
            Shell::SplitCommandLine(HostPath::Shown(scanner.substr(program.size())));
        command.insert(command.begin(), HostPath::ToHost(program));
        return command;
    }
    std::vector<std::string> command = Shell::SplitCommandLine(HostPath::ToHost(scanner));
    if (command.empty()) command.emplace_back(); // nothing that could be started
    return command;
}

class TempFile {
public:
    TempFile() : path_(FileSystem::CreateTempFile("ID3")) {}
    ~TempFile() {
        Skip([this] { FileSystem::DeleteFile(path_); });
    }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const std::string& Path() const { return path_; }

private:
    std::string path_;
};

void WriteNames(const MainWindow& window, const std::string& path) {
    std::string names;
    for (std::size_t row = 0; row < window.FileList.Count(); ++row)
        if (window.FileList.IsSelected(row))
            names += HostPath::ToHost(Renaming::NameOnDisk(window.FileOf(row))) + '\n';
    BinaryFile file;
    file.OpenExisting(path);
    file.Write(names);
}

// False for Cancel.
bool AskToSave(MainWindow& window) {
    if (window.CountChanged() == 0) return true;
    modBase::MsgResult =
        modBase::ShowMessage("Changes have not been saved yet! You have to save them first,\r\n"
                             "otherwise MusicStation can only read the old information.\r\n"
                             "Do you want to save now?",
                             MsgBox::kYesNoCancel | MsgBox::kQuestion, "Save changes?");
    if (modBase::MsgResult == MsgBox::kCancel) return false;
    if (modBase::MsgResult == MsgBox::kYes) window.submnuSave();
    return true;
}

} // namespace

void submnuAddDB(MainWindow& window) {
    if (!AskToSave(window)) return;
    const TempFile list;
    std::vector<std::string> command = CommandOf(ScannerPath());
    command.push_back(HostPath::ToHost(list.Path()));
    command.emplace_back("/dialog");
    WriteNames(window, list.Path());
    // As in a pass, nothing else begins or closes meanwhile.
    const Progress progress(Progress::Window::None);
    Shell::StartAndWait(command, TheServices().KeepPainting);
}

} // namespace calyvox
