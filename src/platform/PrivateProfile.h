// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

/// Ini files, read and written by the rules that programs of this format share:
///
///     ; a comment: ";" is the first character but blanks and tabs
///     [Section]              the name: from "[" to the last "]" of the line
///     Key = Value            blanks and tabs around both are cut
///     Other = " Value "      one pair of " or ' around a value is stripped by reading
///
/// Lines end in CR LF or LF; all other bytes are data. Names are compared without case. Of sections with the
/// same name only the first counts, of keys with the same name within it only the first is read or changed.
/// Lines without "=" or without a name before it are no keys, nor is what stands before the first section.
///
/// Paths are inside paths (see HostPath). A file that is missing, no plain file or above 256 MiB reads as
/// empty. Nothing here throws. Parsed files are kept between calls, so this belongs to one thread.
namespace calyvox::PrivateProfile {

/// At most 65534 bytes. The fallback, its trailing blanks cut, stands for a key that is absent; a key
/// without a value is not.
std::string ReadValue(const std::string& section, const std::string& key, const std::string& fallback,
                      const std::string& path);
/// The names of all keys as written and in the file's order, each followed by a NUL, repeated ones too; at
/// most 65533 bytes. The fallback stands for a section that is absent or has no keys.
std::string ReadKeys(const std::string& section, const std::string& fallback, const std::string& path);

/// The names of all sections in file order, each once; none without a readable file.
std::vector<std::string> SectionNames(const std::string& path);

/// Each is a Batch of one.
bool WriteValue(const std::string& section, const std::string& key, const std::string& value,
                const std::string& path);
bool DeleteKey(const std::string& section, const std::string& key, const std::string& path);
bool DeleteSection(const std::string& section, const std::string& path);

/// Changes to one file that reach the disk together. A change touches its own line alone, all other bytes of
/// the file stay. What is written ends in CR LF: a new key goes behind the last line of its section that is
/// not blank, a new section to the end of the file. Names and values go as far as their first NUL, CR or LF.
class Batch {
public:
    explicit Batch(std::string path);
    void WriteValue(const std::string& section, const std::string& key, const std::string& value);
    void DeleteKey(const std::string& section, const std::string& key);
    /// With its comments and blank lines.
    void DeleteSection(const std::string& section);
    /// Makes the changes in their order and replaces the file in one step, unless its bytes stay the same.
    /// False, with the file as it was, where it is read-only, cannot be read or cannot be replaced.
    bool Commit();

private:
    struct Change {
        std::string Section;
        std::optional<std::string> Key;   // none: the section goes
        std::optional<std::string> Value; // none: the key goes
    };

    std::string path_;
    std::vector<Change> changes_;
};

} // namespace calyvox::PrivateProfile
