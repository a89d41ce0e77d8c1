// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/clsCommandLine.h"
#include "engine/MP3s.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// The process-wide state and the small routines that every form calls.
namespace calyvox::modBase {

/// The folder that the list shows, without a backslash at its end.
inline std::string ActivPath;
/// 1 shows ID3V1 fields in the list, any other value ID3V2 fields.
inline std::uint8_t VerShow = 0;
/// All files of the current list; made anew by every refresh.
inline std::unique_ptr<MP3s> LoadedMP3s = std::make_unique<MP3s>();
/// Full paths that a scan gathered.
inline std::vector<std::string> FoundFiles;
/// Set by the progress window, polled by long runs, cleared at the start of each.
inline bool CancelRun = false;
/// The button code of the last message box.
inline std::int16_t MsgResult = 0;
/// Set by CleanFileName when it changed a character; the caller clears it.
inline bool NameWasCleaned = false;
inline clsCommandLine CommandLine;
/// Mirrors of the settings "UnSync" and of the same name; the engine's host is their home.
bool& WriteUnSync();
bool& SingleCOMMGenre();

/// Shows a message box and returns the button's code (see Services.h).
std::int16_t ShowMessage(const std::string& text, int buttons, const std::string& title);

/// The name with each of \\ / : * ? < > | " CR LF replaced by "_", which sets NameWasCleaned, and cut to its
/// first 250 characters.
std::string CleanFileName(const std::string& name);

/// Ini files (see PrivateProfile): section, key, value, and the file's inside path.
std::int16_t IniWrite(const std::string& section, const std::string& key, const std::string& value,
                      const std::string& file);
void IniDeleteSection(const std::string& section, const std::string& file);
std::string IniRead(const std::string& section, const std::string& key, const std::string& fallback,
                    const std::string& file);
/// All key names of the section, each followed by a NUL.
std::string IniReadSection(const std::string& section, const std::string& fallback, const std::string& file);

/// Joins the engine to the boxes, the trace and the settings. Done once at start-up.
void ConnectEngine();

} // namespace calyvox::modBase
