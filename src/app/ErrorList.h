// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace calyvox {

/// What the error window says: a headline, and a line for each file that something went wrong with. It goes
/// on from pass to pass until somebody clears it.
class ErrorList {
public:
    const std::string& Message() const { return message_; }
    void SetMessage(const std::string& message) { message_ = message; }
    /// Lines, each ended by CR LF.
    const std::string& Content() const { return content_; }
    void Add(const std::string& line) { content_.append(line).append("\r\n"); }
    void Clear();
    /// Shows the window, unless there is nothing to say.
    void Show() const;

private:
    std::string message_;
    std::string content_;
};

/// The one list of the process.
ErrorList& TheErrors();

} // namespace calyvox
