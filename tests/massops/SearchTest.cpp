// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "massops/ListViewFind.h"
#include "platform/HostPath.h"

#include <gtest/gtest.h>

using namespace calyvox;

TEST(SearchTest, PatternsMatchWholeTextsWithoutRegardToCase) {
    using Texts = std::vector<std::string>;
    // Names hold as escapes a letter that the code page lacks, a byte that is no UTF-8, a backslash.
    const std::string ni = HostPath::FromHost("\xE6\x97\xA5"), raw = HostPath::FromHost("\xFF"),
                      bs = HostPath::FromHost("\\");
    const std::tuple<std::string, Texts, Texts> kCases[] = {
        // pattern, what it matches, what not
        {"L\xE9\x9A?#", {"l\xC9\x8AX0", "l\xE9\x9A?9"}, {"le\x9Ax0", "l\xE9\x9Ax:", "l\xE9\x9Ax/"}},
        {"a?", {"ab"}, {"a", "abc", "xab"}},
        {"a**b*", {"ab", "a*b", "axxbx"}, {"a", "ba", ""}},
        {"*aab", {"aaab", "aabaab"}, {"aaba"}},
        {"[b-D1]x", {"bx", "Cx", "dX", "1x"}, {"ax", "ex", "-x", "x"}},
        {"[a-][-a]", {"a-", "-a"}, {"ab", "b-"}},
        {"[A-z\xE0-\xE4]", {"a", "Z", "\xC2"}, {"_", "[", "\xC5"}},
        {"[!a-c][c!*]", {"d!", "!C", "d*"}, {"bc", "dd", "d"}},
        {"[[]x[]][!]]", {"[x]!]"}, {"[x]a]", "[x]!", "x!]"}},
        {"*[]*", {}, {"", "[]", "a"}},
        {"*[a", {}, {"a", "[a", ""}},
        {"*[xc-b]*", {}, {"b", "c", "x"}},
        {ni + "?" + ni, {ni + raw + ni}, {ni + ni, ni + "0" + raw}},
        {"?2*", {"\0322345678"}, {ni}},
        {"*2*", {}, {ni}},
        {"*?2*", {}, {ni + "x"}},
        {"[" + ni + "][!" + ni + "]", {ni + raw, ni + "x"}, {ni + ni, raw + raw, "\x1A\x1A"}},
        {"a" + bs + "b", {"A\\B", "a" + bs + "b"}, {"a/b"}},
        {"*a*a*a*a*a*a*a*a*a*a*a*a*b", {std::string(99, 'a') + "b"}, {std::string(999, 'a')}}};
    for (const auto& [pattern, yes, no] : kCases) {
        for (const std::string& text : yes)
            EXPECT_TRUE(LikeCompareText(text, pattern)) << pattern << " " << text;
        for (const std::string& text : no)
            EXPECT_FALSE(LikeCompareText(text, pattern)) << pattern << " " << text;
    }
    EXPECT_FALSE(LikePattern("[a-b]", CompareMode::Exact).Matches("A"));
}
