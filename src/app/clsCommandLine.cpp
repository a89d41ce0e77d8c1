// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/clsCommandLine.h"

#include "app/modReport.h"
#include "platform/CodePage.h"
#include "platform/HostPath.h"

#include <sys/stat.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace calyvox {

namespace {

constexpr std::size_t kSwitchLength = 3;

std::string WithoutQuotes(std::string text) {
    if (text.starts_with('"')) text.erase(0, 1);
    if (text.ends_with('"')) text.pop_back();
    return text;
}

bool IsSwitch(std::string_view argument) {
    if (argument.size() < kSwitchLength || argument[0] != '/' || argument[2] != '=') return false;
    const char letter = CodePage::Upper(argument[1]);
    return letter >= 'A' && letter <= 'Z';
}

// The values of "/A=" and "/S=" are words, whatever lies about in the current folder.
bool TakesWord(char letter) { return CodePage::Upper(letter) == 'A' || CodePage::Upper(letter) == 'S'; }

std::string Joined(const std::string& folder, const std::string& path) {
    return path.starts_with('/') ? path : folder + '/' + path;
}

bool NamesPath(char letter, const std::string& value, const std::string& folder) {
    if (value.starts_with('/') || value.starts_with("./") || value.starts_with("../")) return true;
    struct stat found {};
    return !value.empty() && !TakesWord(letter) && ::stat(Joined(folder, value).c_str(), &found) == 0;
}

// Behind a symbolic link ".." is not the folder that holds the link.
bool HasPlainParent(const std::string& path) {
    struct stat found {};
    return !path.ends_with("/..") && (::lstat(path.c_str(), &found) != 0 || !S_ISLNK(found.st_mode));
}

// Without empty parts and ".", and without ".." where that can be had; a slash at the end stays.
std::string Absolute(const std::string& value, const std::string& folder) {
    const std::string whole = Joined(folder, value);
    std::string path;
    for (std::size_t start = 0; start < whole.size();) {
        const std::size_t end = std::min(whole.find('/', start), whole.size());
        const std::string part = whole.substr(start, end - start);
        start = end + 1;
        if (part.empty() || part == "." || (part == ".." && path.empty())) continue;
        if (part == ".." && HasPlainParent(path))
            path.erase(path.rfind('/'));
        else
            path.append("/").append(part);
    }
    if (path.empty() || whole.ends_with('/')) path += '/';
    return path;
}

// Names keep what the code page lacks; slashes and backslashes stay what they are.
std::string PlainText(std::string_view host) {
    std::string text;
    while (true) {
        const std::size_t end = host.find_first_of("/\\");
        text += HostPath::FromHost(host.substr(0, end));
        if (end == std::string_view::npos) return text;
        text += host[end];
        host.remove_prefix(end + 1);
    }
}

// Resolve takes blanks and a quote off the end of a value, and one more quote off the end of the text. A path
// that ends so is wrapped; but not before a blank that would keep "/I=" from taking the wrapping off.
std::string Protected(std::string path, char letter, bool last) {
    const bool endangered = path.ends_with('"') || path.ends_with(' ');
    if (!endangered || (CodePage::Upper(letter) == 'I' && !last)) return path;
    return '"' + path + (last ? "\"\"" : "\"");
}

std::optional<std::string> HostPathIn(const std::string& argument, const std::string& folder) {
    if (!IsSwitch(argument)) return std::nullopt;
    const std::string value = argument.substr(kSwitchLength);
    if (NamesPath(argument[1], value, folder)) return Absolute(value, folder);
    const bool quoted = value.size() >= 2 && value.starts_with('"') && value.ends_with('"');
    const std::string inner = WithoutQuotes(value);
    if (quoted && NamesPath(argument[1], inner, folder)) return Absolute(inner, folder);
    return std::nullopt;
}

} // namespace

void clsCommandLine::Resolve(const std::string& commandText) {
    std::string rest = CodePage::Trim(commandText);
    if (rest.empty()) return;
    rest = CodePage::Trim(WithoutQuotes(rest));
    ReportLine(rest);
    for (std::size_t slash = rest.find('/'); slash != std::string::npos; slash = rest.find('/')) {
        const std::string name = CodePage::Upper(rest.substr(slash, kSwitchLength));
        // Counted as if the switch stood at the start, which it does from the second round on: a switch
        // behind other text is taken twice, the second time with its whole value.
        const std::size_t end = rest.find('/', kSwitchLength);
        const std::size_t length = end == std::string::npos ? end : end - kSwitchLength;
        const std::size_t start = std::min(slash + kSwitchLength, rest.size());
        TakeSwitch(name, rest.substr(start, length));
        const std::size_t next = rest.find('/', 1);
        rest = next == std::string::npos ? std::string() : rest.substr(next);
    }
}

void clsCommandLine::TakeSwitch(std::string_view name, const std::string& value) {
    if (name == "/P=") {
        TakePath(WithoutQuotes(CodePage::Trim(value)));
        return;
    }
    const std::string word = CodePage::Trim(WithoutQuotes(value));
    if (name == "/I=") dataFilePath_ = word;
    if (name == "/A=" && CodePage::EqualNoCase(word, "TRUE")) autoModus_ = true;
    if (name == "/S=" && CodePage::EqualNoCase(word, "NO")) save_ = false;
}

void clsCommandLine::TakePath(std::string path) {
    path_ = std::move(path);
    if (path_.ends_with('\\')) {
        filename_.clear();
    } else if (CodePage::EndsWithNoCase(path_, ".mp3")) {
        const std::size_t backslash = path_.rfind('\\');
        filename_ = path_.substr(backslash + 1);
        path_.erase(backslash == std::string::npos ? 0 : backslash);
        // A file in the host's root: an empty path would mean that none was given.
        if (backslash == 0) path_ = '\\';
    }
}

std::string CommandText(const std::vector<std::string>& hostArguments, const std::string& hostCurrentFolder) {
    std::string text;
    for (std::size_t i = 0; i < hostArguments.size(); ++i) {
        const std::string& argument = hostArguments[i];
        if (i > 0) text += ' ';
        if (const auto path = HostPathIn(argument, hostCurrentFolder))
            text += argument.substr(0, kSwitchLength) +
                    Protected(HostPath::FromHost(*path), argument[1], i + 1 == hostArguments.size());
        else
            text += PlainText(argument);
    }
    return text;
}

} // namespace calyvox
