// Tests of the spelling of names and texts.
// SPDX-License-Identifier: MIT
#include <map>
#include <random>

#include <gtest/gtest.h>

#include <platform/settings/SettingsSpelling.h>
#include <platform/text/CodePage.h>
#include <support/CodePages.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

struct Spelling {
    const char* why;
    std::string_view text;  // in UTF-8
    const char *name, *value;
};

constexpr Spelling kSpellings[] = {
    {"plain text is itself", "Due date", "Due date", "Due date"},
    {"an empty text is empty", "", "", ""},
    {"signs of the file's own are safe in values", "a=[b];#", "a\\x3D\\x5Bb\\x5D\\x3B\\x23",
     "a=[b];#"},
    {"lines stay one line", "a\r\n\tb", "a\\r\\n\\tb", "a\\r\\n\\tb"},
    {"a backslash is doubled", "C:\\new", "C:\\\\new", "C:\\\\new"},
    {"blanks at the ends are kept", "  a ", "\\x20 a\\x20", "\\x20 a\\x20"},
    {"a blank alone is kept", " ", "\\x20", "\\x20"},
    {"control characters are told", {"\0\x1F\x7F", 3}, "\\x00\\x1F\\x7F", "\\x00\\x1F\\x7F"},
    {"a backslash as trail byte is none", "ソ表", "ソ表", "ソ表"},
    {"what 932 lacks is itself", "Zoë 한 😀", "Zoë 한 😀", "Zoë 한 😀"},
};

class SettingsSpelling : public testing::TestWithParam<LocaleCase> {
protected:
    LocaleInForce locale{GetParam().tag, GetParam().codePage};
};

INSTANTIATE_TEST_SUITE_P(BothCodePages, SettingsSpelling, testing::ValuesIn(kBothCodePages));

}  // namespace

TEST_P(SettingsSpelling, WhatALineCannotHoldIsEscaped) {
    for (const Spelling& row : kSpellings) {
        std::string text;
        CodePage::System().FromUtf8(row.text, text);

        EXPECT_EQ(SpellName(text), row.name) << row.why;
        EXPECT_EQ(SpellText(text), row.value) << row.why;
        EXPECT_EQ(ReadSpelling(row.value).Bytes(), text) << row.why;
        EXPECT_EQ(ReadSpelling(row.name).Bytes(), text) << row.why;
    }
}

TEST_P(SettingsSpelling, ABackslashThatEscapesNothingIsItself) {
    EXPECT_EQ(ReadSpelling("\\q\\X41\\x4 \\x4a\\x").Bytes(), "\\q\\X41\\x4 J\\x");
}

TEST_P(SettingsSpelling, AnyBytesComeBack) {
    std::mt19937 random(GetParam().codePage);
    std::map<std::string, std::string> textOf;
    for (int round = 0; round < 30'000; ++round) {
        std::string text(random() % 12, '\0');
        for (char& byte : text) byte = static_cast<char>(random());
        const std::string name = SpellName(text);
        const std::string value = SpellText(text);

        ASSERT_EQ(ReadSpelling(name).Bytes(), text) << testing::PrintToString(text);
        ASSERT_EQ(ReadSpelling(value).Bytes(), text) << testing::PrintToString(text);
        ASSERT_EQ(name.find_first_of(std::string_view("[]=;#\r\n\t\0", 9)), std::string::npos);
        ASSERT_EQ(textOf.try_emplace(name, text).first->second, text) << name;
    }
}

}  // namespace orvo
