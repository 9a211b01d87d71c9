// Cutting text, closing a folder's name, and the one line that a list shows.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <contracts/TextServices.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

struct CutRow {
    const char* why;
    unsigned page;
    const char* in;
    int limit;
    const char *without, *with;
};
constexpr CutRow kCutRows[] = {
    {"short enough", 65001, "abc", 3, "abc", "abc"},
    {"a limit below zero", 65001, "abc", -5, "", ""},
    {"inside a character", 65001, "aあb", 3, "a", "aあ"},
    {"inside a pair", 932, "a\x82\xA0\x62", 2, "a", "a\x82\xA0"},
    {"single bytes", 1252, "a\x82\xA0\x62", 2, "a\x82", "a\x82"},
};

TEST(Cut, ASplitCharacterGoesOrStays) {
    for (const CutRow& row : kCutRows) {
        const LocaleInForce locale("en-US", row.page);
        CString without(row.in);
        CString with(row.in);
        LeftAndValidateDec(without, row.limit);
        LeftAndValidateInc(with, row.limit);
        EXPECT_EQ(without, row.without) << row.why;
        EXPECT_EQ(with, row.with) << row.why;
    }
}

struct TextRow {
    const char* why;
    unsigned page;
    std::string in, want;
};

TEST(AppendBackslash, EndsTheTextWithOneBackslash) {
    const TextRow rows[] = {
        {"none yet", 932, "C:\\a", "C:\\a\\"},
        {"there already", 932, "C:\\", "C:\\"},
        {"a trail byte is none", 932, "C:\\\x95\x5C", "C:\\\x95\x5C\\"},
        {"a character before it", 932, "\x82\xA0\\", "\x82\xA0\\"},
        {"on another page it is one", 1252, "\x95\x5C", "\x95\x5C"},
        {"nothing", 932, "", "\\"},
    };
    for (const TextRow& row : rows) {
        const LocaleInForce locale("en-US", row.page);
        CString text(row.in);
        AppendBackslash(text);
        EXPECT_EQ(text, CString(row.want)) << row.why;
    }
}

TEST(RemoveLeadingSpacesEx, LeavesTheStartOfTheFirstLineWithText) {
    const std::string longText(256, 'x');
    const TextRow rows[] = {
        {"ordinary text", 65001, "buy milk", "buy milk"},
        {"all kinds of leading white space", 65001, " \t\r\n\n a b ", "a b "},
        {"ends at a carriage return", 65001, " a\r\nb", "a"},
        {"ends at a tab", 65001, "a\tb", "a"},
        {"a line feed alone stays", 65001, "a\nb", "a\nb"},
        {"a vertical tab is no blank", 65001, "\va", "\va"},
        {"only white space", 65001, " \t\r\n", ""},
        {"nothing", 65001, "", ""},
        {"256 bytes fit", 65001, longText, longText},
        {"the rest goes", 65001, " " + longText + "y", longText},
        {"no character is split", 65001, longText.substr(1) + "é", longText.substr(1)},
        {"no pair is split", 932, longText.substr(1) + "\x82\xA0", longText.substr(1)},
    };
    for (const TextRow& row : rows) {
        const LocaleInForce locale("en-US", row.page);
        CString text(row.in);
        RemoveLeadingSpacesEx(text);
        EXPECT_EQ(text, CString(row.want)) << row.why;
    }
}

}  // namespace

}  // namespace orvo
