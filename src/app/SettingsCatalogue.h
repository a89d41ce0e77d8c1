// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RegistryStore.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calyvox {

/// The tree that holds all settings; the paths below are told from here ("Settings\VerShow").
inline constexpr std::string_view kSettingsRoot = "HKCU\\SOFTWARE\\Calyvox\\";
/// A tree of an older generation gets what it lacks at the next start.
inline constexpr std::int32_t kSettingsGeneration = 20011127;
/// Columns of the file list; they are numbered from 1.
inline constexpr int kSettingsColumns = 16;

/// What the defaults depend on. Folders and names are inside ones; ProgramName has no ".exe".
struct SettingsEnvironment {
    std::string ProgramFolder;
    std::string ProgramName;
    std::string CurrentFolder;
};

/// One value, or, with a trailing backslash and RegistryStore::kNone, one key.
struct SettingDefault {
    std::string Path;
    std::uint32_t Type;
    std::string Value;
};

/// Everything below the tree but Version and AppPath, in the order in which it is written.
std::vector<SettingDefault> SettingsCatalogue(const SettingsEnvironment& environment);

/// "Settings\ColPos" and 3 give "Settings\ColPos03".
std::string ColumnSetting(std::string_view prefix, int column);

/// The settings stage of the start: removes a tree misfiled under a key named after the root, completes a
/// missing or older tree in one step, and writes where the program lies. The user's values stay. Raises
/// the failures of clsRegistry.
void CheckRegSettings(const SettingsEnvironment& environment, RegistryStore& store = RegistryStore::Get());

/// A value of the tree as text, the fallback where it cannot be read.
std::string ReadSetting(const std::string& path, const std::string& fallback = {},
                        RegistryStore& store = RegistryStore::Get());
/// A setting that is a whole number of 32 bits; nothing for any other text.
std::optional<std::int32_t> NumberSetting(const std::string& path);
/// All that the writing writes becomes one step. Raises the failures of clsRegistry.
void WriteTogether(const std::function<void()>& writing, RegistryStore& store = RegistryStore::Get());
/// Each raises the failures of clsRegistry.
void WriteNumber(const std::string& path, int number);
void WriteSetting(const std::string& path, const std::string& value, std::uint32_t type,
                  RegistryStore& store = RegistryStore::Get());

} // namespace calyvox
