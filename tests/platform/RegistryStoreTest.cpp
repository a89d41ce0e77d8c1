// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/RegistryStore.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <filesystem>

using namespace calyvox;
using namespace std::string_literals;
using Store = RegistryStore;

namespace {

const Store::Key kUser = Store::RootKey(0x80000001);

class RegistryStoreTest : public testing::Test {
protected:
    // What an outside program reads or does; each column ends in "|".
    std::string Outside(const std::string& sql) const {
        std::string text;
        sqlite3* database = nullptr;
        sqlite3_open(file_.c_str(), &database);
        char** cells = nullptr; // a row of names comes first
        int rows = 0, columns = 0;
        EXPECT_EQ(sqlite3_get_table(database, sql.c_str(), &cells, &rows, &columns, nullptr), SQLITE_OK)
            << sql;
        for (int i = columns; i < (rows + 1) * columns; ++i)
            text += cells[i] + "|"s;
        sqlite3_free_table(cells);
        sqlite3_close(database);
        return text;
    }
    std::string Query(const Store::Key& key, const std::string& name) const {
        Store::Value value;
        EXPECT_EQ(store_->QueryValue(key, name, 256, value), Store::kSuccess);
        return std::to_string(value.Type) + " " + value.Data;
    }
    // What standard error gets when a store is opened and written to.
    std::string ToldAtOpening(const std::string& file) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(Store(file).CreateKey(kUser, "A\\B", key_), Store::kSuccess);
        return testing::internal::GetCapturedStderr();
    }

    TempFolder folder_;
    std::string file_ = folder_.Host("deep/er/settings.db");
    std::unique_ptr<Store> store_ = std::make_unique<Store>(file_);
    Store::Key key_;
};

TEST_F(RegistryStoreTest, OutsideProgramsReadAndWritePathNameTypeAndValue) {
    store_->CreateKey(kUser, "X", key_);
    store_->SetValue(key_, "Text", Store::kText, "\x80z\0"s);
    store_->SetValue(key_, "Number", Store::kNumber, "\xFE\xFF\xFF\xFF");
    store_->SetValue(key_, "Bytes", Store::kBinary, "\xFF\x01");
    EXPECT_EQ(Outside("SELECT substr(path, 19), name, type, quote(value) FROM settings ORDER BY position"),
              "X|Text|1|'\u20ACz'|X|Number|4|-2|X|Bytes|3|X'FF01'|");
    Outside("UPDATE settings SET value = '12' WHERE type = 4; UPDATE settings SET value = 12 WHERE type = 1");
    EXPECT_EQ(Query(key_, "Number"), "4 \x0C\0\0\0"s);
    EXPECT_EQ(Query(key_, "Text"), "1 12\0"s);
    EXPECT_EQ(std::filesystem::status(folder_.Host("deep")).permissions(), std::filesystem::perms::owner_all);
}

TEST_F(RegistryStoreTest, ValuesComeBackWithTypeAndBytesWhateverTheCase) {
    std::string all;
    for (int i = 255; i >= 0; --i)
        all += static_cast<char>(i);
    const std::pair<std::uint32_t, std::string> rows[] = {
        {1, all}, {2, all}, {3, all}, {99, all}, {4, "\x01\x02\x03\x84"}, {4, "1"}, {3, ""}};
    for (const auto& [type, data] : rows) {
        ASSERT_EQ(store_->SetValue(kUser, "Name", type, data), Store::kSuccess);
        EXPECT_EQ(Query(kUser, "nAME"), std::to_string(type) + " " + data);
    }
}

TEST_F(RegistryStoreTest, ABatchIsUndoneWithoutCommitAndNests) {
    for (const bool commit : {false, true}) {
        Store::Batch outer(*store_);
        store_->CreateKey(kUser, commit ? "Kept" : "Lost", key_);
        {
            const Store::Batch lost(*store_);
            store_->CreateKey(kUser, "Inner", key_);
        }
        EXPECT_EQ(commit ? outer.Commit() : Store::kSuccess, Store::kSuccess);
    }
    EXPECT_EQ(Outside("SELECT path FROM keys WHERE parent NOT NULL"), "HKEY_CURRENT_USER\\Kept|");
}

TEST_F(RegistryStoreTest, TheStoreItselfTellsTheTypeOfMp3FilesAndTakesNoWritesThere) {
    const Store::Key classes = Store::RootKey(0x80000000);
    std::string names, name;
    for (const char* path : {"", "MP3FILE\\Shell\\", "mp3file\\shell\\open", ".MP3"}) {
        EXPECT_EQ(store_->OpenKey(classes, path, key_), Store::kSuccess) << path;
        for (std::size_t i = 0; store_->EnumerateKeys(key_, i, name) == Store::kSuccess; ++i)
            names += name + "|";
        EXPECT_EQ(store_->SetValue(key_, "", Store::kText, "x"), Store::kAccessDenied);
    }
    EXPECT_EQ(names + Query(key_, ""), ".mp3|mp3file|Open|1 mp3file\0"s);
    EXPECT_EQ(store_->CreateKey(classes, "mp3file\\shell\\Play", key_), Store::kAccessDenied);
}

TEST_F(RegistryStoreTest, AReadOnlyFileRefusesToOpenKeysAndToWrite) {
    ::chmod(file_.c_str(), 0444);
    Store readOnly(file_);
    EXPECT_EQ(readOnly.OpenKey(kUser, "", key_), Store::kAccessDenied);
    EXPECT_EQ(readOnly.SetValue(kUser, "V", Store::kText, {}), Store::kAccessDenied);
}

TEST_F(RegistryStoreTest, ACorruptFileIsKeptAsideAndAFreshOneBegun) {
    store_.reset();
    std::filesystem::resize_file(file_, std::filesystem::file_size(file_) - 4096); // a page is damaged
    EXPECT_NE(ToldAtOpening(file_).find(file_ + ".corrupt"), std::string::npos);
    const std::string damaged(5000, 'x');
    WriteHostFile(file_, damaged);
    WriteHostFile(file_ + "-wal", "old");
    ::chmod(file_.c_str(), 0444); // SQLite itself removes the journal of a writable file
    EXPECT_NE(ToldAtOpening(file_).find(file_ + ".corrupt.2"), std::string::npos);
    EXPECT_EQ(ReadHostFile(file_ + ".corrupt.2") + ReadHostFile(file_ + ".corrupt.2-wal"), damaged + "old");
    EXPECT_EQ(ToldAtOpening(file_), "");
}

TEST_F(RegistryStoreTest, WithoutAUsableFolderTheStoreLivesInMemory) {
    for (const std::string& file : {file_ + "/settings.db", folder_.Host("deep"), ""s})
        EXPECT_NE(ToldAtOpening(file).find("until the end"), std::string::npos) << file;
}

} // namespace
