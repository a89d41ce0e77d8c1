// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The one place that knows how the host names files. Inside the program a path is bytes of the code page
/// with backslashes ("\home\me\Music\a.mp3"); on the host it is "/home/me/Music/a.mp3", UTF-8 or any
/// bytes. Every host name maps to an inside name and back without loss: what the page lacks, a byte that is
/// no UTF-8, a backslash and the byte 1A become an escape of 8 bytes, the lead byte 1A and seven decimal
/// digits: the code point, or 1114112 (hexadecimal 110000) plus the byte. An escape is one unit without
/// case. A lead byte that begins no such escape stands for nothing on the host and becomes "_" there.
namespace calyvox::HostPath {

inline constexpr char kEscapeLead = '\x1A';
inline constexpr std::size_t kEscapeLength = 8;

/// Host path or name to inside path or name.
std::string FromHost(std::string_view hostPath);
/// Inside path or name to host path or name.
std::string ToHost(std::string_view path);
/// The same where a folder is meant: the empty path is the host's root "/".
std::string ToHostFolder(std::string_view path);
/// For the screen and for text output: backslashes stay, each escape becomes its character, or the host's
/// own byte where that was no UTF-8. The rest is UTF-8.
std::string Shown(std::string_view path);

/// Whatever cuts, cleans or converts names goes through these.
std::size_t Length(std::string_view name);
std::string Left(std::string_view name, std::size_t units);
std::string Lower(std::string_view name);
std::string Upper(std::string_view name);
/// Each of \ / : * ? < > | " CR LF becomes "_"; changed is set if there was one and left alone otherwise.
/// A lead byte that begins no escape becomes "_" too.
std::string Clean(std::string_view name, bool& changed);

/// The name for a box that it is edited in, one code point a unit. What has no character of its own is U+DC00
/// plus the byte: a byte that is no UTF-8, and a backslash or a byte 1A inside a name.
std::u32string Units(std::string_view name);
/// Back, whatever was typed: what the page lacks becomes an escape.
std::string FromUnits(std::u32string_view units);

/// A name's text for a tag: every escape becomes "?".
std::string ToTagText(std::string_view name);

} // namespace calyvox::HostPath
