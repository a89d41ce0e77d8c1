// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "automation/Lists.h"

#include "app/Services.h"
#include "app/Version.h"
#include "app/modBase.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/RowCells.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"
#include "platform/HostPath.h"
#include "platform/ReplacementFile.h"

namespace calyvox {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

// With a backslash at its end; empty on Cancel.
std::string AskForFolder() {
    FolderRequest request;
    request.Title = request.Caption = "Select folder";
    request.StatusText = "Please select the folder where the list should be saved";
    request.StartPath = modBase::ActivPath;
    std::string folder = TheServices().BrowseForFolder(request);
    if (!folder.empty() && !folder.ends_with('\\')) folder += '\\';
    return folder;
}

void WriteFile(const std::string& path, const std::string& text) {
    if (FileSystem::FileExists(path) && FileSystem::IsReadOnly(path))
        throw Failure(Failure::kPathAccess, "Lists");
    ReplacementFile file(path);
    file.Write(text);
    file.Commit();
}

template <typename Writing>
void WriteOrTell(Writing&& writing) {
    try {
        writing();
    } catch (const Failure&) {
        modBase::MsgResult = modBase::ShowMessage("List could not be created", MsgBox::kExclamation, "Error");
    }
}

std::string PlaylistOf(const MainWindow& window) {
    std::string text;
    for (std::size_t row = 0; row < window.FileList.Count(); ++row)
        if (window.FileList.IsSelected(row))
            text.append(HostPath::ToHost(window.FileOf(row).MP3File_FileName())).append(kLineEnd);
    return text;
}

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string PageHead() {
    // A file name may hold what the page has no byte for.
    const std::string folder = modBase::ActivPath.empty() ? "\\" : HostPath::ToTagText(modBase::ActivPath);
    std::string text;
    for (const std::string& line : {
             std::string("<html>"),
             std::string("<head>"),
             std::string("<title>Calyvox-MP3-List</title>"),
             "<meta http-equiv=" + Quoted("Content-Type") +
                 " content=" + Quoted("text/html; charset=iso-8859-1") + ">",
             std::string("</head>"),
             std::string(kLineEnd),
             "<body bgcolor=" + Quoted("#FFFFFF") + ">",
             "<h1>MP3-Files in '" + folder + "'</h1>",
             "<p>(Created by <a href=" + Quoted(kHomePage) + " target=" + Quoted("_blank") +
                 ">Calyvox</a>)</p>",
             "<table border=" + Quoted("0") + " cellspacing=" + Quoted("2") + " cellpadding=" + Quoted("2") +
                 ">",
             "  <tr bgcolor=" + Quoted("#CCCCCC") + ">",
         })
        text.append(line).append(kLineEnd);
    return text;
}

void AddCell(std::string& text, std::string_view cell) {
    text.append("    <td>").append(cell).append("</td>").append(kLineEnd);
}

std::string PageOf(const MainWindow& window) {
    const std::vector<std::size_t> columns = window.View.ColumnOrder();
    std::string text = PageHead();
    for (const std::size_t column : columns)
        AddCell(text, RowCells::kCaptions.at(column));
    text.append("  </tr>").append(kLineEnd);
    for (std::size_t row = 0; row < window.FileList.Count(); ++row) {
        if (!window.FileList.IsSelected(row)) continue;
        text.append("  <tr valign=").append(Quoted("top")).append(">").append(kLineEnd);
        for (const std::size_t column : columns) {
            const std::string& cell = RowList::Cell(window.FileList.At(row), column);
            const bool isName = column == 0 || column == RowCells::kSubdirectory;
            AddCell(text, isName ? HostPath::ToTagText(cell) : cell);
        }
        text.append("  </tr>").append(kLineEnd);
    }
    return text.append("</table>").append(kLineEnd).append("</body>").append(kLineEnd);
}

} // namespace

void CreateM3U(MainWindow& window) {
    const std::string folder = AskForFolder();
    if (folder.empty()) return;
    const std::string name =
        TheServices().InputBox("Enter the name the playlist should have.", "Playlist name");
    if (name.empty()) return;
    WriteOrTell([&] {
        bool cleaned = false;
        HostPath::Clean(name, cleaned);
        if (cleaned) throw Failure(Failure::kPathAccess, "CreateM3U");
        WriteFile(folder + name + ".m3u", PlaylistOf(window));
    });
}

void CreateHTML(MainWindow& window) {
    const std::string folder = AskForFolder();
    if (folder.empty()) return;
    WriteOrTell([&] { WriteFile(folder + "Calyvox-List.htm", PageOf(window)); });
}

} // namespace calyvox
