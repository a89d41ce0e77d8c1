// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/RowList.h"

#include <cstdint>
#include <functional>
#include <string>

namespace calyvox {

/// What an unattended run tells whoever started it.
namespace ExitStatus {
inline constexpr int kNoErrors = 0;
inline constexpr int kErrors = 1;
inline constexpr int kNothingToDo = 2;
inline constexpr int kCouldNotStart = 3;
} // namespace ExitStatus

/// Works through a data file in which another program names files and the values of their tags (see
/// help/massupdate.html). Each file gets a row: its path, and in column 1 what became of it, bold after an
/// error. Failures inside one file end that file alone.
class MassUpdate {
public:
    /// dataFile is an inside path.
    MassUpdate(std::string dataFile, RowList& updatedFiles);

    /// The number of files that the data file announces, at least 0.
    std::int32_t Count() const { return count_; }
    /// Errors so far, of all runs since ClearErrors.
    std::int32_t Errors() const { return errors_; }
    void ClearErrors() { errors_ = 0; }

    /// Told after each file, with its 1-based number.
    using FileDone = std::function<void(std::int32_t number, const RowList::Row& row)>;
    /// Clears the list and updates one file after the other until the last or until Stop, which takes effect
    /// between two files. Lets window events run once per file.
    void Run(const FileDone& fileDone);
    void Stop() { stop_ = true; }

private:
    void UpdateFile(std::int32_t number, const FileDone& fileDone);

    std::string dataFile_;
    RowList& updatedFiles_;
    std::int32_t count_;
    std::int32_t errors_ = 0;
    bool stop_ = false;
};

} // namespace calyvox
