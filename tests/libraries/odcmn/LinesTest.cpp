// Tests of text of several lines.
// SPDX-License-Identifier: MIT
#include <contracts/TextServices.h>

#include "LocaleTest.h"

namespace orvo {
namespace {

struct LineRow {
    const char *why, *text, *line, *rest;
    bool multiline;
};

constexpr LineRow kLines[] = {
    {"empty", "", "", "", false},
    {"one line", "one", "one", "", false},
    {"an end with nothing behind it", "one\n", "one", "", false},
    {"a pair is one end", "one\r\n", "one", "", false},
    {"a pair parts two lines", "one\r\ntwo", "one", "two", true},
    {"a carriage return alone", "one\rtwo", "one", "two", true},
    {"a line feed alone", "one\ntwo\nthree", "one", "two\nthree", true},
    {"an empty second line", "one\n\n", "one", "\n", true},
    {"the other way round it is two", "one\n\rtwo", "one", "\rtwo", true},
    {"an empty first line", "\ntwo", "", "two", true},
    {"characters of several bytes", "表ソ\r\n能", "表ソ", "能", true},
};

class Lines : public LocaleTest, public testing::WithParamInterface<unsigned> {};

TEST_P(Lines, TheFirstLineComesOutAndTheRestStays) {
    ASSERT_TRUE(SystemLocale::Set("ja-JP", GetParam()));
    for (const LineRow& row : kLines) {
        CString text = SystemText(row.text);
        CString line("old");

        EXPECT_EQ(IsMultiline(text) != 0, row.multiline) << row.why;
        GetFirstLine(text, line);

        EXPECT_EQ(ToUtf8(line), row.line) << row.why;
        EXPECT_EQ(ToUtf8(text), row.rest) << row.why;
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, Lines, testing::Values(kUtf8CodePage, kJapaneseCodePage));

}  // namespace
}  // namespace orvo
