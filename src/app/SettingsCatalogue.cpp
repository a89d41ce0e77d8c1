// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/SettingsCatalogue.h"

#include "app/clsRegistry.h"
#include "app/modReport.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"

#include <algorithm>
#include <array>
#include <limits>

namespace calyvox {

namespace {

constexpr auto kKey = RegistryStore::kNone;
constexpr auto kText = RegistryStore::kText;
constexpr auto kNumber = RegistryStore::kNumber;

struct Row {
    std::string_view Path;
    std::uint32_t Type;
    std::string_view Value;
};

// The paths between the key and the formats are the user's and follow from the environment.
constexpr std::array kFormatsAndPlayer = {
    Row{"Parameter\\PlayerPath", kText, "Not specified"},
    Row{"Parameter\\PlayerParameter", kText, "%P"},
    Row{"Parameter\\PlayerShell", kText, "Open"},
    Row{"Parameter\\DefaultPlayer", kText, "1"},
    Row{"Parameter\\FilenameToTAG1", kText, "Example: %A\\%B\\%K - %T"},
    Row{"Parameter\\FilenameToTAG2", kText, "Example: %A\\%B\\%K - %T"},
    Row{"Parameter\\TAG1ToFilename", kText, "Example: %A - %B - %K - %T"},
    Row{"Parameter\\TAG2ToFilename", kText, "Example: %A - %B - %K - %T"},
};

constexpr std::array kMainWindow = {
    Row{"Settings\\", kKey, ""},
    Row{"Settings\\VerShow", kNumber, "2"},
    Row{"Settings\\WindowLeft", kNumber, "500"},
    Row{"Settings\\WindowTop", kNumber, "500"},
    Row{"Settings\\WindowWidth", kNumber, "12015"},
    Row{"Settings\\WindowHeight", kNumber, "7770"},
    Row{"Settings\\DoubleClick", kText, "1"},
    Row{"Settings\\CoolLines", kNumber, "1"},
    Row{"Settings\\ToolPos", kNumber, "1"},
    Row{"Settings\\NotSave", kNumber, "0"},
    Row{"Settings\\QuickEdit", kNumber, "0"},
    Row{"Settings\\UnSync", kNumber, "0"},
    Row{"Settings\\SubDir", kNumber, "0"},
    Row{"Settings\\Foldertree", kNumber, "1"},
};

struct ColumnRow {
    std::string_view Position;
    std::string_view Width;
};

constexpr std::array<ColumnRow, kSettingsColumns> kColumns = {{
    {"1", "4000"},  // Filename
    {"4", "1000"},  // ID3V1
    {"6", "1000"},  // Artist
    {"7", "1000"},  // Title
    {"8", "1000"},  // Album
    {"11", "1000"}, // Comment
    {"10", "1000"}, // Genre
    {"12", "1000"}, // Year
    {"9", "1000"},  // Track
    {"13", "1000"}, // Mode
    {"14", "1000"}, // Bitrate
    {"15", "1000"}, // Freq.
    {"16", "1000"}, // Channel
    {"5", "1000"},  // ID3V2
    {"2", "1000"},  // Subdirectory
    {"3", "1000"},  // Changed
}};

constexpr std::array kOperations = {
    Row{"Settings\\TagFileStartNo", kNumber, "1"},
    Row{"Settings\\TagFileSteats", kNumber, "2"},
    Row{"Settings\\TagFileTrackSteats", kNumber, "2"},
    Row{"Settings\\TransferArtist", kNumber, "1"},
    Row{"Settings\\TransferTitle", kNumber, "1"},
    Row{"Settings\\TransferAlbum", kNumber, "1"},
    Row{"Settings\\TransferTrack", kNumber, "1"},
    Row{"Settings\\TransferGenre", kNumber, "1"},
    Row{"Settings\\TransferYear", kNumber, "1"},
    Row{"Settings\\TransferComment", kNumber, "1"},
    Row{"Settings\\TransferCOMD", kText, "ID3V1-Comment"},
    Row{"Settings\\TransferDirection", kNumber, "1"},
    Row{"Settings\\CCFilename", kNumber, "1"},
    Row{"Settings\\CCTitle", kNumber, "1"},
    Row{"Settings\\CCAlbum", kNumber, "1"},
    Row{"Settings\\CCArtist", kNumber, "1"},
    Row{"Settings\\CCTitle2", kNumber, "1"},
    Row{"Settings\\CCAlbum2", kNumber, "1"},
    Row{"Settings\\CCArtist2", kNumber, "1"},
    Row{"Settings\\CCOption", kNumber, "1"},
    Row{"Settings\\CCEnglI", kNumber, "1"},
    Row{"Settings\\CCLowStart", kNumber, "1"},
    Row{"Settings\\CCchkSeparator", kNumber, "1"},
    Row{"Settings\\CCSeparator", kText, " - "},
    Row{"Settings\\SearchFrags", kText, "1"},
    Row{"Settings\\SearchEck", kText, "0"},
    Row{"Settings\\SearchItem", kText, "1"},
    Row{"Settings\\CMP3RIFF", kNumber, "1"},
    Row{"Settings\\CMP3ID3V2", kNumber, "1"},
    Row{"Settings\\ID3V2Ver", kNumber, "3"},
    Row{"Settings\\OwnGenreOnly", kNumber, "0"},
    Row{"Settings\\SingleCOMMGenre", kNumber, "0"},
    Row{"Settings\\Language", kNumber, "104"},
    Row{"Parameter\\Organize", kText, "%A\\%B"},
    Row{"Parameter\\OrganizeVer", kText, "2"},
    Row{"Settings\\Dialogs\\", kKey, ""},
};

constexpr std::array<std::string_view, 16> kDialogs = {
    "frmCaseConv",   "frmCommEdit",    "frmCommEditMulti", "frmFNameToTAG1", "frmFNameToTAG2", "frmID3V1",
    "frmID3V1Multi", "frmID3V2",       "frmID3V2Multi",    "frmID3V2Genre",  "frmMoveCopy",    "frmSearch",
    "frmErrors",     "frmTAG1ToFName", "frmTAG2ToFName",   "frmTransfer",
};

std::string InTree(std::string_view path) { return std::string(kSettingsRoot).append(path); }

void RemoveMisfiledTree(clsRegistry& registry) {
    registry.SetKey("HKCU\\HKEY_CURRENT_USER\\SOFTWARE\\Calyvox\\");
    if (!registry.KeyExists()) return;
    registry.delKey();
    registry.SetKey("HKCU\\HKEY_CURRENT_USER\\SOFTWARE\\");
    registry.delKey();
    registry.SetKey("HKCU\\HKEY_CURRENT_USER\\");
    registry.delKey();
}

bool SettingsAreMissing(clsRegistry& registry) {
    registry.SetKey(InTree({}));
    if (!registry.KeyExists()) return true;
    registry.SetKey(InTree("Version"));
    return !registry.KeyExists() || CodePage::LeadingNumber(registry.getValue()) < kSettingsGeneration;
}

void WriteSettings(const SettingsEnvironment& environment, RegistryStore& store) {
    WriteTogether(
        [&] {
            clsRegistry registry(store);
            registry.SetKey(InTree({}));
            registry.setValue({}, kKey);
            registry.SetKey(InTree("Version"));
            registry.setValue(std::to_string(kSettingsGeneration), kNumber);
            for (const SettingDefault& setting : SettingsCatalogue(environment)) {
                registry.SetKey(InTree(setting.Path));
                if (!registry.KeyExists()) registry.setValue(setting.Value, setting.Type);
            }
        },
        store);
}

} // namespace

std::vector<SettingDefault> SettingsCatalogue(const SettingsEnvironment& environment) {
    std::vector<SettingDefault> settings = {
        {"Parameter\\", kKey, {}},
        {"Parameter\\StartPath", kText, environment.CurrentFolder},
        {"Parameter\\MoveCopyPath", kText, environment.CurrentFolder},
    };
    const auto append = [&](const auto& rows) {
        for (const Row& row : rows)
            settings.push_back({std::string(row.Path), row.Type, std::string(row.Value)});
    };
    append(kFormatsAndPlayer);
    append(kMainWindow);
    for (int column = 1; column <= kSettingsColumns; ++column) {
        const ColumnRow& row = kColumns[column - 1];
        settings.push_back({ColumnSetting("Settings\\ColPos", column), kNumber, std::string(row.Position)});
        settings.push_back({ColumnSetting("Settings\\ColWidth", column), kNumber, std::string(row.Width)});
    }
    append(kOperations);
    for (const std::string_view dialog : kDialogs) {
        const std::string path = std::string("Settings\\Dialogs\\").append(dialog);
        settings.push_back({path + "Top", kNumber, "500"});
        settings.push_back({path + "Left", kNumber, "500"});
    }
    return settings;
}

std::string ColumnSetting(std::string_view prefix, int column) {
    return std::string(prefix).append(column < 10 ? "0" : "") + std::to_string(column);
}

void CheckRegSettings(const SettingsEnvironment& environment, RegistryStore& store) {
    ReportLine("modBase.main: Checking Reg Settings");
    clsRegistry registry(store);
    RemoveMisfiledTree(registry);
    if (SettingsAreMissing(registry)) {
        ReportLine("modBase.main: Writing Reg Settings");
        WriteSettings(environment, store);
    }
    ReportLine("modBase.main: Checking App Path");
    const std::string& folder = environment.ProgramFolder;
    const std::string separator = folder.ends_with('\\') ? "" : "\\";
    registry.SetKey(InTree("AppPath"));
    registry.setValue(folder + separator + environment.ProgramName + ".exe", kText);
}

std::string ReadSetting(const std::string& path, const std::string& fallback, RegistryStore& store) {
    std::string text = fallback;
    Skip([&] {
        clsRegistry registry(store);
        registry.SetKey(InTree(path));
        text = registry.getValue();
    });
    return text;
}

std::optional<std::int32_t> NumberSetting(const std::string& path) {
    const std::string text = CodePage::Trim(ReadSetting(path));
    const std::size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    const bool digits =
        text.size() > sign && std::all_of(text.begin() + static_cast<std::ptrdiff_t>(sign), text.end(),
                                          [](char c) { return c >= '0' && c <= '9'; });
    constexpr std::size_t kMostDigits = 10;
    if (!digits || text.size() - sign > kMostDigits) return std::nullopt;
    const double number = CodePage::LeadingNumber(text);
    if (number > std::numeric_limits<std::int32_t>::max() ||
        number < std::numeric_limits<std::int32_t>::min())
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}

void WriteTogether(const std::function<void()>& writing, RegistryStore& store) {
    RegistryStore::Batch batch(store);
    writing();
    const RegistryStore::Status status = batch.Commit();
    if (status != RegistryStore::kSuccess) throw clsRegistry::CannotCreate(InTree({}), status);
}

void WriteNumber(const std::string& path, int number) { WriteSetting(path, std::to_string(number), kNumber); }

void WriteSetting(const std::string& path, const std::string& value, std::uint32_t type,
                  RegistryStore& store) {
    clsRegistry registry(store);
    registry.SetKey(InTree(path));
    registry.setValue(value, type);
}

} // namespace calyvox
