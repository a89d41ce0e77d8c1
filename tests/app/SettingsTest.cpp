// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/SettingsCatalogue.h"
#include "app/clsRegistry.h"
#include "platform/Failure.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>
#include <set>

namespace calyvox {
namespace {

using Names = std::vector<std::string>;
using Store = RegistryStore;

const std::string kRoot(kSettingsRoot);

class SettingsTest : public testing::Test {
protected:
    clsRegistry At(const std::string& key) {
        clsRegistry registry(store_);
        registry.SetKey(key);
        return registry;
    }
    std::string Read(const std::string& path) { return ReadSetting(path, "missing", store_); }
    void Check() { CheckRegSettings(environment_, store_); }

    TempFolder folder_;
    Store store_{folder_.Host("settings.db")};
    SettingsEnvironment environment_{"\\opt\\calyvox", "calyvox", "\\home\\me"};
};

TEST_F(SettingsTest, ValuesComeBackAsText) {
    const std::tuple<std::string, std::uint32_t, std::string> rows[] = {
        {"-7 a", 4, "-7"}, {"none", 4, "0"}, {" \x80 ", 1, " \x80 "},
        {"", 1, ""},       {"", 3, ""},      {" a  0ff z", 3, "0A FF 00"}};
    for (const auto& [value, type, text] : rows) {
        EXPECT_TRUE(At("HKCU\\A\\V").setValue(value, type));
        EXPECT_EQ(At("HKCU\\A\\V").getValue(), text);
    }
    // Other types come from outside programs alone.
    store_.SetValue({"HKEY_CURRENT_USER\\A"}, "V", Store::kExpandableText, std::string("%HOME%\0", 7));
    EXPECT_EQ(At("HKCU\\A\\V").getValue(), "%HOME%");
    store_.SetValue({"HKEY_CURRENT_USER\\A"}, "V", 99, "x");
    EXPECT_FALSE(At("HKCU\\A\\V").KeyExists());
}

TEST_F(SettingsTest, FailuresCarryNumberSourceAndText) {
    At("HKCU\\A\\B\\C").setValue("x", Store::kText);
    using Call = std::function<void(clsRegistry&)>;
    const Call get = [](clsRegistry& r) { r.getValue(); };
    const Call set = [](clsRegistry& r) { r.setValue("1 100", Store::kBinary); };
    const Call strict = [](clsRegistry& r) { r.SetautoCreate(false), r.setValue("x", Store::kText); };
    const Call remove = [](clsRegistry& r) { r.delKey(); };
    const std::tuple<std::string, Call, unsigned, std::string> rows[] = {
        {"HKCU", get, 0x202, "getValue: Ung\xFCltiger Schl\xFCssel: \"HKCU\""},
        {"HKCU\\A\\\\", remove, 0x202, "delKey: Ung\xFCltiger Schl\xFCssel!"},
        {"HKXX\\A", set, 0x203, "getRoot: Unbekannter Hauptschl\xFCssel: \"HKXX\""},
        {"HKCU\\N\\V", get, 0x204, "OpenKey: Kann Schl\xFCssel nicht \366ffnen \"HKCU\\N\", Error # 2"},
        {"HKCU\\A\\V", strict, 0x205, "setValue: Schl\xFCssel wird nicht angelegt"},
        {"HKCU\\A\\V", get, 0x208, "getValue: Kann Schl\xFCssel nicht lesen \"HKCU\\A\\V\""},
        {"HKCU\\A\\V", set, 0x20C, "setValue: Ung\xFCltige Bin\xE4rzahl (gr\366\337er als 255): \"1 100\""},
        {"HKCU\\A\\\\B\\V", set, 0x20F,
         "setValue: Fehler beim Erstellen/Zugriff auf Schl\xFCssel \"HKCU\\A\\\\B\\V\" Error #: 2"},
    };
    EXPECT_THROW(At("\\"), Failure);
    for (const auto& [key, call, number, told] : rows) {
        clsRegistry registry = At(key);
        try {
            call(registry);
            ADD_FAILURE() << told;
        } catch (const Failure& failure) {
            EXPECT_EQ(static_cast<unsigned>(failure.Number()), 0x80040000 + number) << told;
            EXPECT_EQ(failure.Source() + ": " + failure.Text(), told);
        }
    }
}

TEST_F(SettingsTest, KeysAndValuesAreListedAndDeleted) {
    for (const char* value : {"HKCU\\A\\z", "HKCU\\A\\a"})
        At(value).setValue("1", Store::kNumber);
    At("HKCU\\A\\Sub\\").setValue("", Store::kNone); // makes the key and no value
    EXPECT_EQ(At("HKCU\\A").regEnum(), (Names{"z", "a"}));
    EXPECT_EQ(At("HKCU\\A\\").regEnum(), Names{"Sub"});
    EXPECT_EQ(At("HKCU\\A\\Sub").regEnum(), Names{});
    const std::pair<std::string, int> rows[] = {{"z", 0},     {"z", 2},     {"", 5},
                                                {"Sub\\", 0}, {"Sub\\", 2}, {"", 0}};
    for (const auto& [key, status] : rows)
        EXPECT_EQ(At("HKCU\\A\\" + key).delKey(), status) << key;
    EXPECT_EQ(At("HKCU\\").regEnum(), Names{});
}

TEST_F(SettingsTest, FirstRunWritesEveryValueAndRemovesAMisfiledTree) {
    At("HKCU\\HKEY_CURRENT_USER\\SOFTWARE\\Calyvox\\Version").setValue("1", Store::kNumber);
    Check();
    EXPECT_EQ(At("HKCU\\").regEnum(), Names{"SOFTWARE"});
    std::set<std::string> places;
    for (const auto& [path, type, value] : SettingsCatalogue(environment_)) {
        EXPECT_TRUE(At(kRoot + path).KeyExists()) << path;
        EXPECT_EQ(Read(path), type == Store::kNone ? "missing" : value);
        if (path.starts_with("Settings\\ColPos")) places.insert(value);
    }
    EXPECT_EQ(places.size(), 16U) << "every column has a place of its own";
    EXPECT_EQ(Read("Parameter\\StartPath") + Read("Settings\\CCSeparator"), "\\home\\me - ");
    EXPECT_EQ(Read("AppPath"), "\\opt\\calyvox\\calyvox.exe");
}

TEST_F(SettingsTest, OnlyAnOlderTreeGetsWhatItLacks) {
    Check();
    for (const std::string version : {"20011127", "20990101", "20011126"}) {
        WriteSetting("Version", version, Store::kNumber, store_);
        WriteSetting("Settings\\WindowTop", "70", Store::kNumber, store_);
        At(kRoot + "Settings\\VerShow").delKey();
        environment_ = {"\\opt\\", "calyvox", "\\elsewhere"};
        Check();
        const bool older = version == "20011126";
        EXPECT_EQ(Read("Settings\\VerShow"), older ? "2" : "missing") << version;
        EXPECT_EQ(Read("Version"), older ? "20011127" : version);
        EXPECT_EQ(Read("AppPath"), "\\opt\\calyvox.exe") << "at every start, without a doubled backslash";
        EXPECT_EQ(Read("Settings\\WindowTop") + Read("Parameter\\StartPath"), "70\\home\\me");
    }
}

} // namespace
} // namespace calyvox
