// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace calyvox {

/// The one kind of exception that crosses floors. It carries a number that callers compare, a source word
/// and a text for the user; the settings store has numbers of its own (see clsRegistry).
class Failure : public std::exception {
public:
    static constexpr std::int32_t kInvalidCall = 5;
    static constexpr std::int32_t kOverflow = 6;
    static constexpr std::int32_t kOutOfMemory = 7;
    static constexpr std::int32_t kBadIndex = 9;
    static constexpr std::int32_t kTypeMismatch = 13;
    static constexpr std::int32_t kFileNotFound = 53;
    static constexpr std::int32_t kFileExists = 58;
    static constexpr std::int32_t kPermissionDenied = 70;
    static constexpr std::int32_t kDiskNotReady = 71;
    static constexpr std::int32_t kPathAccess = 75;
    static constexpr std::int32_t kPathNotFound = 76;
    static constexpr std::int32_t kKeyExists = 457;

    /// With the number's own standard text.
    explicit Failure(std::int32_t number, std::string source = {});
    Failure(std::int32_t number, std::string source, std::string text);

    /// The failure that an errno of the host stands for: no such file 53, in use or not allowed 70,
    /// exists 58, no room 71, no memory or handles 7, a missing folder 76, anything else 75.
    static Failure FromHostError(int hostError, std::string source);

    std::int32_t Number() const { return number_; }
    const std::string& Source() const { return source_; }
    const std::string& Text() const { return text_; }
    const char* what() const noexcept override { return text_.c_str(); }

private:
    std::int32_t number_;
    std::string source_;
    std::string text_;
};

/// Runs one statement and goes on after a failure, as routines do that skip failures statement by statement.
template <typename Statement>
void Skip(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
    } catch (const Failure&) {
        return;
    }
}

} // namespace calyvox
