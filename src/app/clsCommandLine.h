// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace calyvox {

/// What the command line asks for. The command text is any number of switches, each a slash, one letter and
/// an equals sign in any case, followed by its value up to the next slash:
///
///     /P=  folder to show, or the file in it to select     /A=  "true" works through the data file unasked
///     /I=  data file of a mass update                      /S=  "no" keeps the start folder as it was
///
/// Everything else is ignored.
class clsCommandLine {
public:
    const std::string& Path() const { return path_; }
    const std::string& Filename() const { return filename_; }
    bool AutoModus() const { return autoModus_; }
    bool Save() const { return save_; }
    const std::string& DataFilePath() const { return dataFilePath_; }

    void Resolve(const std::string& commandText);

private:
    void TakeSwitch(std::string_view name, const std::string& value);
    void TakePath(std::string path);

    std::string path_;
    std::string filename_;
    bool autoModus_ = false;
    bool save_ = true;
    std::string dataFilePath_;
};

/// The command text that the host's arguments (without the program's own name) stand for, joined by blanks.
/// In an argument "/X=value" a value that begins with "/", "./" or "../" or names something that exists
/// becomes an absolute inside path, which holds no slash; one pair of quotes around it may go. Every other
/// slash and backslash stays.
std::string CommandText(const std::vector<std::string>& hostArguments, const std::string& hostCurrentFolder);

} // namespace calyvox
