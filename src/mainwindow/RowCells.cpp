// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/RowCells.h"

#include "engine/V2LDCFrame.h"
#include "engine/V2TextFrame.h"
#include "platform/CodePage.h"

#include <algorithm>

namespace calyvox::RowCells {

namespace {

constexpr std::int32_t kMostBitRate = 500000;
constexpr std::int32_t kMostFrequence = 50000;

using Cells = std::vector<std::string>;

std::string& At(Cells& cells, std::size_t subItem) { return cells[subItem - 1]; }

void AddAudio(const MP3& file, Cells& cells) {
    if (file.MP3Header_BitRate() > kMostBitRate || file.MP3Header_Frequence() > kMostFrequence) {
        for (const std::size_t cell : {kMode, kBitrate, kFreq, kChannel})
            At(cells, cell) = "MP3-Header Error";
        return;
    }
    At(cells, kMode) = file.MP3Header_MPEG() + file.MP3Header_Layer();
    At(cells, kBitrate) = std::to_string(file.MP3Header_BitRate());
    At(cells, kFreq) = std::to_string(file.MP3Header_Frequence());
    At(cells, kChannel) = file.MP3Header_Channel();
}

void AddID3V1(const MP3& file, Cells& cells) {
    const auto shown = ID3V1Cells(file);
    std::copy(shown.begin(), shown.end(), cells.begin() + kArtist - 1);
    if (file.ID3V1_Present()) return;
    At(cells, kGenre).clear();
    At(cells, kTrack).clear();
}

std::string ContentOf(const V2Frame& frame) {
    if (const auto* text = dynamic_cast<const V2TextFrame*>(&frame)) return text->Content();
    if (const auto* described = dynamic_cast<const V2LDCFrame*>(&frame)) return described->Content();
    return {};
}

void AddFrame(const V2Frame& frame, Cells& cells) {
    const std::string& id = frame.FrameHeader_FrameID();
    if (id == "TPE1") At(cells, kArtist) = ContentOf(frame);
    if (id == "TIT2") At(cells, kTitle) = ContentOf(frame);
    if (id == "TALB") At(cells, kAlbum) = ContentOf(frame);
    if (id == "COMM" && At(cells, kComment).empty()) At(cells, kComment) = ContentOf(frame);
    if (id == "TCON") At(cells, kGenre) = ContentOf(frame);
    if (id == "TYER") At(cells, kYear) = ContentOf(frame);
    if (id == "TDRC") At(cells, kYear) = ContentOf(frame).substr(0, 4);
    if (id == "TRCK") At(cells, kTrack) = CodePage::Trim(ContentOf(frame));
}

void AddID3V2(MP3& file, Cells& cells) {
    if (!file.TagHeader_Present()) return;
    for (const V2Frame& frame : file.ID3V2())
        AddFrame(frame, cells);
}

std::string Subdirectory(const std::string& path, const std::string& activPath) {
    const std::size_t name = path.rfind('\\');
    return name <= activPath.size() ? std::string() : path.substr(activPath.size(), name - activPath.size());
}

} // namespace

std::string NameOf(const MP3& file) {
    constexpr std::size_t kExtension = 4;
    std::string name = file.MP3File_FileName();
    name.erase(0, name.rfind('\\') + 1);
    name.resize(name.size() - std::min(kExtension, name.size()));
    return name;
}

std::array<std::string, 7> ID3V1Cells(const MP3& file) {
    return {file.ID3V1_Artist(),
            file.ID3V1_Title(),
            file.ID3V1_Album(),
            file.ID3V1_Comment(),
            file.ID3V1_GenreText(),
            file.ID3V1_Year(),
            std::to_string(file.ID3V1_Track())};
}

std::vector<std::string> CellsOf(MP3& file, const std::string& activPath, int verShow) {
    Cells cells(kColumns - 1);
    At(cells, kID3V1) = file.ID3V1_Present() ? "Yes" : "No";
    AddAudio(file, cells);
    At(cells, kID3V2) =
        file.TagHeader_Present() ? "Ver. 2." + std::to_string(file.TagHeader_Version()) : "No";
    At(cells, kSubdirectory) = Subdirectory(file.MP3File_FileName(), activPath);
    if (verShow == 1)
        AddID3V1(file, cells);
    else
        AddID3V2(file, cells);
    if (file.Changed()) At(cells, kChanged) = "Y";
    return cells;
}

} // namespace calyvox::RowCells
