// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/CodePage.h"
#include "platform/Failure.h"
#include "platform/HostPath.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace calyvox;
using namespace std::string_literals;

namespace {

// The text with an escape's lead byte for each "^".
std::string Escaped(std::string text) {
    std::replace(text.begin(), text.end(), '^', HostPath::kEscapeLead);
    return text;
}

TEST(CodePage, All256BytesComeBackFromUtf8AndMake59PairsOfCase) {
    int pairs = 0;
    for (int i = 0; i < 256; ++i) {
        const char c = static_cast<char>(i);
        EXPECT_EQ(CodePage::FromUtf8(CodePage::ToUtf8({&c, 1})), std::string(1, c));
        EXPECT_EQ(CodePage::Upper(CodePage::Lower(c)), CodePage::Upper(c));
        pairs += CodePage::Lower(c) == c ? 0 : 1;
    }
    EXPECT_EQ(pairs, 26 + 30 + 3);
    EXPECT_EQ(CodePage::ToUtf8("a\x80\x81\x9F\xA0\xFC"), "a\u20AC\xC2\x81\u0178\u00A0\u00FC");
    EXPECT_EQ(CodePage::Upper("az\xE0\xF6\xFE\x9A\x9C\x9E"), "AZ\xC0\xD6\xDE\x8A\x8C\x8E");
    const std::string caseless = "@[`{\x83\xAA\xB5\xDF\xD7\xF7\xFF\x9F\x80\x8D\x8F\x9D";
    EXPECT_EQ(CodePage::Upper(caseless) + CodePage::Lower(caseless), caseless + caseless);
}

TEST(CodePage, ASubstituteStandsForACharacterThePageLacksOrAByteThatIsNoUtf8) {
    EXPECT_EQ(CodePage::FromUtf8("a\0\u0416\uFFFF\U0001F600\U0010FFFF\xC2\x80z"s, '#'), "a\0#####z"s);
    const char* invalid[] = {"\xC0\xAF",     "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xE2\x82",
                             "\xF0\x9F\x98", "\x80",     "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"};
    for (const std::string bytes : invalid)
        EXPECT_EQ(CodePage::FromUtf8(bytes + "z", '#'), std::string(bytes.size(), '#') + "z");
}

TEST(CodePage, ComparingAndSearchingAreCaseBlindAndStayInTheText) {
    for (const auto& [less, more] : {std::pair("", "a"), {"A", "ab"}, {"AB", "a_"}, {"a", "\xFF"}})
        EXPECT_TRUE(CodePage::CompareNoCase(less, more) < 0 && CodePage::CompareNoCase(more, less) > 0);
    EXPECT_TRUE(CodePage::EqualNoCase("a\xC4", "A\xE4") && !CodePage::EqualNoCase("a", "ab"));
    EXPECT_TRUE(CodePage::EndsWithNoCase("x.Mp3", ".mP3") && !CodePage::EndsWithNoCase("mp3", ".mp3"));
    EXPECT_TRUE(CodePage::FindNoCase("aB\xC4zAb\xE4", "b\xE4", 2) == 5 &&
                CodePage::FindNoCase("", "", 1) > 1);
    EXPECT_EQ(CodePage::Trim("  \xA0 \t\0 "s), "\xA0 \t\0"s) << "blanks alone are cut";
}

TEST(CodePage, ANumberEndsAtTheFirstForeignCharacter) {
    const std::pair<std::string, double> rows[] = {{"", 0},    {"inf", 0}, {"  12/14", 12}, {"-3.5.7", -3.5},
                                                   {"+7x", 7}, {"--7", 0}, {".25", 0.25},   {"1e3", 1}};
    for (const auto& [text, value] : rows)
        EXPECT_DOUBLE_EQ(CodePage::LeadingNumber(text), value) << text;
}

TEST(CodePage, NumbersAreRoundedHalfToEvenAndFailBeyondTheirType) {
    for (const auto& [text, value] : {std::pair("2.5", 2), {"3.5", 4}, {"-0.5", 0}, {"255.4", 255}})
        EXPECT_TRUE(CodePage::LeadingByte(text) == value && CodePage::LeadingLong(text) == value) << text;
    for (const auto& [text, value] : {std::pair("2147483647.4", INT32_MAX), {"-2147483648", INT32_MIN}})
        EXPECT_EQ(CodePage::LeadingLong(text), value);
    for (const std::string& text : {"2147483647.5"s, "-2147483649"s, std::string(400, '9')})
        EXPECT_THROW(CodePage::LeadingLong(text), Failure);
    EXPECT_THROW(CodePage::LeadingByte("-1"), Failure);
    EXPECT_THROW(CodePage::LeadingByte("255.5"), Failure);
}

TEST(HostPath, EveryHostNameComesBackWithoutLoss) {
    const std::string all = "/a\n\u00E9\u20AC\u0081\u0080\u0416\U0001F600\U0010FFFF\xFF\\DC\x1A";
    const std::string inside = "\\a\n\xE9\x80\x81^0000128^0001046^0128512^1114111^1114367^0000092DC^0000026";
    EXPECT_EQ(HostPath::FromHost(all), Escaped(inside));
    EXPECT_EQ(HostPath::ToHost(Escaped(inside)), all);
    for (int pair = 0; pair < 0x10000; ++pair) {
        const std::string host = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
        ASSERT_EQ(HostPath::ToHost(HostPath::FromHost(host)), host) << pair;
    }
    EXPECT_EQ(HostPath::ToHost("") + HostPath::ToHostFolder(""), "/");
}

TEST(HostPath, AnEscapeSmugglesNothingIn) {
    const char* digits[] = {
        "0000047", "0000000", "0000065", "0000233", // "/", NUL and what has a plain form
        "0008364", "0055296", "1114112", "1114239", // the euro sign, a surrogate, plain bytes
        "1114368", "9999999", "000009",  "00010x6", ""};
    for (const std::string row : digits)
        EXPECT_EQ(HostPath::ToHost(Escaped("a^" + row)), "a_" + row);
}

TEST(HostPath, AnEscapeIsOneUnitWithoutCase) {
    const std::string name = Escaped("a^0001046\xE9");
    EXPECT_EQ(HostPath::Length(name), 3U);
    for (const auto& [units, cut] : {std::pair(0, ""), {1, "a"}, {2, "a^0001046"}, {4, "a^0001046\xE9"}})
        EXPECT_EQ(HostPath::Left(name, static_cast<std::size_t>(units)), Escaped(cut));
    EXPECT_EQ(HostPath::ToTagText(name), "a?\xE9");
    EXPECT_EQ(HostPath::Shown(name + Escaped("\\^1114367")), "a\u0416\u00E9\\\xFF");
    EXPECT_EQ(HostPath::Upper(name), Escaped("A^0001046\xC9"));
    EXPECT_EQ(HostPath::Lower(HostPath::Upper(name)), name);
}

TEST(HostPath, CleaningReplacesForbiddenCharactersAndSaysSo) {
    bool changed = false;
    EXPECT_EQ(HostPath::Clean(Escaped("^0001046^0000047\t\xE9"), changed), Escaped("^0001046_0000047\t\xE9"));
    EXPECT_FALSE(changed);
    EXPECT_EQ(HostPath::Clean("\\/:*?<>|\"\r\n", changed) + HostPath::Clean("a", changed), "___________a");
    EXPECT_TRUE(changed) << "it is set, never taken back";
}

} // namespace
