// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/PrivateProfile.h"

#include "platform/HostCalls.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace calyvox;
using namespace std::string_literals;

namespace {

class PrivateProfileTest : public testing::Test {
protected:
    void Put(const std::string& bytes) const { WriteHostFile(host_, bytes); }
    std::string Bytes() const { return ReadHostFile(host_); }
    std::string Value(const std::string& section, const std::string& key) const {
        return PrivateProfile::ReadValue(section, key, "none ", path_);
    }
    bool Write(const std::string& value) const { return PrivateProfile::WriteValue("S", "k", value, path_); }

    TempFolder folder_;
    std::string path_ = folder_.Inside("Some.ini");
    std::string host_ = folder_.Host("Some.ini");
};

TEST_F(PrivateProfileTest, ReadsValuesByTheRulesOfTheFormat) {
    const struct {
        std::string Lines, Key, Value;
    } rows[] = {{"j=1\nk=v", "k", "v"},      {"k=v\r\n", "K", "v"},
                {"\xD6=v\n", "\xF6", "v"},   {"\tk \t=\t v w \t\n", " k", "v w"},
                {"k=1\nK=2\n", "K", "1"},    {"k=\" v \"\n", "k", " v "},
                {"k=\"'v'\"\n", "k", "'v'"}, {"k='v\"\n", "k", "'v\""},
                {"k=\"\n", "k", "\""},       {"k=\n", "k", ""},
                {" ;k=v\n", ";k", "none"},   {"#1=v ; w\n", "#1", "v ; w"},
                {"k=a=b\n", "k", "a=b"},     {"k\n", "k", "none"},
                {"[k=v\n", "[k", "v"},       {"k=\x1\xE9\rb\r\n", "k", "\x1\xE9\rb"}};
    for (const auto& row : rows) {
        Put("[S]\n" + row.Lines);
        EXPECT_EQ(Value("S", row.Key), row.Value) << row.Lines;
    }
    Put("k=0\n [G\xC4]\t\nk=1\n[T]\n[g\xE4]\nk=2\nj=3\n[a]b] c\nk=4");
    EXPECT_EQ(Value("g\xE4", "k") + Value("g\xE4", "j") + Value("a]b", "k") + Value("", "k"), "1none4none");
}

TEST_F(PrivateProfileTest, ListsKeysInTheFilesOrderAsWrittenUpTo65533Bytes) {
    Put("[S]\r\nPath=1\r\n;no=1\r\nnone\r\n=5\r\n tit2 = x\r\n#1=\r\npath=2\r\n[Empty]\r\n;a=1\r\n");
    EXPECT_EQ(PrivateProfile::ReadKeys("s", "none", path_), "Path\0tit2\0#1\0path\0"s);
    EXPECT_EQ(PrivateProfile::ReadKeys("Empty", "none  ", path_), "none");
    Put("[S]\n" + std::string(66000, 'k') + "=" + std::string(70000, 'v'));
    EXPECT_EQ(Value("S", std::string(66000, 'k')).size(), 65534u) << "what a buffer of 65535 bytes holds";
    EXPECT_EQ(PrivateProfile::ReadKeys("S", "", path_).size(), 65533u);
}

TEST_F(PrivateProfileTest, AChangedFileIsReadAgain) {
    for (const std::string value : {"1", "2"}) { // the same inode and size, at once
        Put("[S]\nk=" + value + "\n");
        EXPECT_EQ(Value("S", "k"), value);
    }
    EXPECT_TRUE(Write("3") && Value("S", "k") == "3");
    ::remove(host_.c_str());
    EXPECT_EQ(Value("S", "k"), "none");
}

TEST_F(PrivateProfileTest, AWriteTouchesItsOwnLineAlone) {
    const std::pair<std::string, std::string> rows[] = {
        {" [s]\n K =\t'a'\n;d\nk=2", " [s]\n K =\tv\r\n;d\nk=2"},    {"[S]", "[S]\r\nk=v\r\n"},
        {"[S]\na\n\n \t\r\n[T]\n", "[S]\na\nk=v\r\n\n \t\r\n[T]\n"}, {"[S]\nk=", "[S]\nk=v\r\n"},
        {"[T]\nk=1\n;e", "[T]\nk=1\n;e\r\n[S]\r\nk=v\r\n"},          {"[S]\na", "[S]\na\r\nk=v\r\n"}};
    for (const auto& [before, after] : rows) {
        Put(before);
        EXPECT_TRUE(PrivateProfile::WriteValue("S", " k ", "v\r\n[U]", path_));
        EXPECT_EQ(Bytes(), after) << before;
    }
}

TEST_F(PrivateProfileTest, ABatchMakesItsChangesInTheirOrder) {
    Put("[S]\n;c\nk=1\n\n[T]\nb=2\nj=1\nB=3\n[t]\nk=2");
    PrivateProfile::Batch batch(path_);
    batch.DeleteSection("s"), batch.WriteValue("S", "1", "x"), batch.DeleteKey("t", "B"),
        batch.WriteValue("T", "B", "5");
    batch.DeleteKey("T", "none"), batch.DeleteKey("U", "k"), batch.DeleteSection("U");
    batch.WriteValue("S", "2", "z"), batch.WriteValue("S", "1", "w");
    batch.WriteValue("S", "[x]", "5"), batch.WriteValue("x", "a", "1"); // a key that reads as a header
    EXPECT_TRUE(batch.Commit());
    EXPECT_EQ(Bytes(), "[T]\nj=1\nB=5\r\n[t]\nk=2\r\n[S]\r\n1=w\r\n2=z\r\n[x]=5\r\na=1\r\n");
}

TEST_F(PrivateProfileTest, AFailureOrWhatChangesNothingLeavesTheFileAlone) {
    EXPECT_TRUE(PrivateProfile::DeleteSection("S", path_) && folder_.Listing().empty());
    Put("[S]\nk=1\n");
    using HostCalls::Call;
    for (const auto failing : {Call::Open, Call::Read, Call::Write, Call::Sync, Call::Rename}) {
        HostCalls::SetInterceptor([&](Call call, std::size_t&) { return call == failing ? EIO : 0; });
        EXPECT_FALSE(Write("2"));
        EXPECT_EQ(Write("1"), failing > Call::Read);
        HostCalls::SetInterceptor({});
        EXPECT_EQ(Bytes(), "[S]\nk=1\n");
    }
    ::chmod(host_.c_str(), 0444);
    EXPECT_FALSE(PrivateProfile::DeleteKey("S", "k", path_) || Bytes() != "[S]\nk=1\n");
}

} // namespace
