// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT

// Makes a library of playable MP3 files with tags of all kinds, to try the program on and for tests. The same
// arguments always give the same bytes.
#include "SampleFile.h"

#include <array>
#include <charconv>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;
using calyvox::Samples::Kind;
using calyvox::Samples::Track;

constexpr const char* kUsage = "Usage: sample-library [--data FILE] [--count N] [--valid] FOLDER\n"
                               "Writes MP3 files to FOLDER/Artist/Album/NN - Title.mp3.\n"
                               "  --data FILE  also write a mass-update data file over them\n"
                               "  --count N    number of files, 1 to 1000000 (default 120)\n"
                               "  --valid      leave out the broken files and the read-only ones\n";

struct Options {
    fs::path Folder;
    fs::path DataFile;
    std::size_t Count = 120;
    bool ValidOnly = false;
};

bool ReadCount(std::string_view text, std::size_t& count) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    return error == std::errc() && end == text.data() + text.size() && count >= 1 && count <= 1'000'000;
}

// Nothing where the arguments make no sense.
std::optional<Options> ReadOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size() && !arguments[i + 1].empty();
        if (argument == "--valid") {
            options.ValidOnly = true;
        } else if (argument == "--data" && hasValue) {
            options.DataFile = arguments[++i];
        } else if (argument == "--count" && hasValue) {
            if (!ReadCount(arguments[++i], options.Count)) return std::nullopt;
        } else if (!argument.empty() && argument[0] != '-' && options.Folder.empty()) {
            options.Folder = argument;
        } else {
            return std::nullopt;
        }
    }
    if (options.Folder.empty()) return std::nullopt;
    return options;
}

// Names. Two albums an artist, twelve files an album; after all artists the albums go on as "Name 2".

constexpr std::size_t kTracksPerAlbum = 12;
constexpr std::array kArtists = {"Marlow & the Tidewater", "Zoë Lindqvist",   "Die Pappelallee",
                                 "Ensemble Ørsted",        "Fjällvind",       "Hollow Lanterns",
                                 "José Aldeano",           "Les Échelles",    "The Quiet Machinists",
                                 "Σπύρος Καλαφάτης",       "Tinsmith Parade", "夜の電車"};
constexpr std::array kAlbums = {"Nachtflüge",   "Paper Harbours",     "Années de verre",
                                "Slow Weather", "Niñas de la lluvia", "Copper & Chalk",
                                "Übermorgen",   "Far From the Rails"};
constexpr std::array kTitleStarts = {"Amber", "Blå",    "Café",  "Distant", "Été",  "Frozen",
                                     "Grüne", "Hidden", "Ivory", "Jasmín",  "Kind", "Lonely"};
constexpr std::array kTitleEnds = {"Avenue",  "Bridges", "Clocks",  "Drömmar", "Echoes",  "Façade", "Gardens",
                                   "Horizon", "Île",     "Journey", "Kites",   "Letters", "Москва"};

Track MakeTrack(std::size_t index) {
    const std::size_t album = index / kTracksPerAlbum;
    const std::size_t round = album / (2 * kArtists.size());
    Track track;
    track.Index = index;
    track.Number = index % kTracksPerAlbum + 1;
    track.Year = 1971 + static_cast<int>(album * 7 % 50);
    track.Artist = kArtists[album / 2 % kArtists.size()];
    track.Album = kAlbums[album % kAlbums.size()];
    if (round > 0) track.Album += " " + std::to_string(round + 1);
    track.Title = kTitleStarts[index % kTitleStarts.size()];
    track.Title += " ";
    track.Title += kTitleEnds[index % kTitleEnds.size()];
    return track;
}

// Files.

void WriteFile(const fs::path& path, const std::string& bytes) {
    fs::remove(path); // an earlier run may have left it read-only
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path.string());
}

std::string TwoDigits(std::size_t number) { return (number < 10 ? "0" : "") + std::to_string(number); }

fs::path WriteTrack(const fs::path& folder, const Track& track, const Kind& kind) {
    const fs::path album = folder / track.Artist / track.Album;
    fs::path path = album / (TwoDigits(track.Number) + " - " + track.Title + ".mp3");
    fs::create_directories(album);
    WriteFile(path, kind.Bytes(track));
    using fs::perms;
    if (kind.ReadOnly) fs::permissions(path, perms::owner_read | perms::group_read | perms::others_read);
    return path;
}

// The kinds take turns, the broken ones last. A broken file has its kind as title.
std::vector<fs::path> WriteLibrary(const Options& options) {
    const auto valid = calyvox::Samples::ValidKinds();
    const auto broken = calyvox::Samples::BrokenKinds();
    const std::size_t kinds = valid.size() + (options.ValidOnly ? 0 : broken.size());
    const fs::path folder = fs::absolute(options.Folder).lexically_normal();
    std::vector<fs::path> paths;
    for (std::size_t index = 0; index < options.Count; ++index) {
        const std::size_t turn = index % kinds;
        const Kind& kind = turn < valid.size() ? valid[turn] : broken[turn - valid.size()];
        Track track = MakeTrack(index);
        if (turn >= valid.size()) track.Title = kind.Name;
        paths.push_back(WriteTrack(folder, track, kind));
    }
    return paths;
}

// The data file: paths as the host's bytes, values in code page 1252, a byte 1 behind each part of a list.

std::string AllTextKeys() {
    constexpr std::array kKeys = {
        "TPE1", "TPE2", "TPE3", "TPE4", "TIT1", "TIT2", "TIT3", "TALB", "TBPM", "TDLY", "TENC", "TEXT",
        "TFLT", "TKEY", "TLAN", "TCOM", "TMED", "TOAL", "TOFN", "TOLY", "TOPE", "TORY", "TOWN", "TPOS",
        "TPUB", "TRCK", "TRSN", "TRSO", "TSIZ", "TSRC", "TSSE", "TYER", "TSST", "TCOP", "TLEN", "IPLS",
        "TDOR", "TDRC", "TDRL", "TDTG", "TIPL", "TMCL", "TMOO", "TPRO", "TSOA", "TSOP", "TSOT"};
    std::string lines;
    for (const char* key : kKeys)
        lines.append(key).append("=Text of ").append(key).append("\r\n");
    return lines;
}

constexpr const char* kAllID3V1Keys =
    "ID3V1-Artist=Herbstl\xE4ufer\r\nID3V1-Title=Ein neuer Titel, der l\xE4nger als drei\xDFig Zeichen "
    "ist\r\n"
    "ID3V1-Album=Album\r\nID3V1-Year=2024\r\nID3V1-Comment=Comment\r\nID3V1-TrackNum=7\r\nID3V1-Genre=17\r\n";
constexpr const char* kBothAnew =
    "UntagID3V1=1\r\nUntagID3V2=1\r\nID3V2Version=4\r\nTIT2=Anew in 2.4\r\nTYER=2024\r\nTORY=1999\r\n"
    "ID3V1-Title=Anew\r\n";
constexpr const char* kEmptied =
    "TIT2=\r\nTALB=\r\nTCON=\r\nCOMM=\r\nPOPM=listener@example.org\x01\x30\x01\r\n"
    "ID3V1-Genre=\r\nID3V1-Comment=\r\n";
constexpr const char* kCommentPairs =
    "COMM=First\x01One comment\x01Second\x01Zweiter, f\xFCr \x84\x41nf\xFChrung\x93\x01\r\n";
constexpr const char* kGenresAndRatings = "TCON=Rock\x01Jazz\x01\r\nPOPM=listener@example."
                                          "org\x01\x31\x39\x36\x01third@example.org\x01\x36\x34\x01\r\n";

// What one file's section holds behind its path. The number of recipes shares no factor with that of the
// kinds, so that over some hundred files each recipe meets each kind.
std::vector<std::string> Recipes() {
    return {kAllID3V1Keys,
            AllTextKeys(),
            kGenresAndRatings,
            kCommentPairs,
            "COMM=Only the text\r\nCOMD=Descriptor\r\nUnknown=ignored\r\nUntagID3V1=0\r\n",
            "UntagID3V1=1\r\n",
            "UntagID3V2=1\r\n",
            kBothAnew,
            "ID3V2Version=3\r\nTIT2=In 2.3 where there was none\r\nTYER=2023\r\nWCOM=http://example.org/\r\n",
            kEmptied,
            ""};
}

std::string Section(std::size_t number, const fs::path& path, const std::string& recipe) {
    const std::string quote = number % 4 == 0 ? "\"" : "";
    return "[File" + std::to_string(number) + "]\r\nPath=" + quote + path.string() + quote + "\r\n" + recipe;
}

void WriteDataFile(const fs::path& dataFile, const std::vector<fs::path>& paths) {
    const std::vector<std::string> recipes = Recipes();
    std::string bytes = "[Files]\r\nCount=" + std::to_string(paths.size()) + "\r\n";
    for (std::size_t i = 0; i < paths.size(); ++i)
        bytes += Section(i + 1, paths[i], recipes[i % recipes.size()]);
    if (dataFile.has_parent_path()) fs::create_directories(dataFile.parent_path());
    WriteFile(dataFile, bytes);
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments == std::vector<std::string>{"--help"}) {
        std::cout << kUsage;
        return 0;
    }
    const std::optional<Options> options = ReadOptions(arguments);
    if (!options) {
        std::cerr << kUsage;
        return 2;
    }
    try {
        const std::vector<fs::path> paths = WriteLibrary(*options);
        if (!options->DataFile.empty()) WriteDataFile(options->DataFile, paths);
    } catch (const std::exception& failure) {
        std::cerr << "sample-library: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
