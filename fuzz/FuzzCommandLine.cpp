// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "app/clsCommandLine.h"
#include "platform/HostPath.h"

#include <sstream>

using calyvox::Fuzz::Require;

namespace {

calyvox::clsCommandLine Resolved(const std::string& text) {
    calyvox::clsCommandLine commandLine;
    commandLine.Resolve(text);
    return commandLine;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// A path that arrives as it is: empty parts, "." and ".." do not, and a value loses blanks at its end.
bool IsPlainPath(const std::string& path) {
    return path.find('\0') == std::string::npos && path.find("//") == std::string::npos &&
           path.find("/.") == std::string::npos && !path.ends_with(' ');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = calyvox::Fuzz::AsText(data, size);
    Require(Resolved(text).Filename().find('\\') == std::string::npos, "a file's name has no folder");
    if (text.find('\0') == std::string::npos) Resolved(calyvox::CommandText(Lines(text), "/"));
    const std::string path = "/" + text;
    if (!IsPlainPath(path)) return 0;
    const auto commandLine = Resolved(calyvox::CommandText({"/S=no", "/I=" + path}, "/"));
    Require(calyvox::HostPath::ToHost(commandLine.DataFilePath()) == path, "a path arrives as it was given");
    Require(!commandLine.Save(), "a path does not hide its neighbour");
    return 0;
}
