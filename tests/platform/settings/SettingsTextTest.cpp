// The text of the settings file: how names and values are spelt, and what a change leaves alone.
// SPDX-License-Identifier: MIT
#include <map>
#include <random>

#include <gtest/gtest.h>

#include <platform/settings/SettingsSpelling.h>
#include <platform/settings/SettingsText.h>
#include <platform/text/SystemText.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

// A text in UTF-8, and how it is spelt as a name and as a value.
constexpr std::string_view kSpellings[][4] = {
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

struct SettingsSpelling : testing::TestWithParam<LocaleCase> {
    LocaleInForce locale{GetParam().tag, GetParam().codePage};
};

INSTANTIATE_TEST_SUITE_P(BothCodePages, SettingsSpelling, testing::ValuesIn(kBothCodePages));

TEST_P(SettingsSpelling, WhatALineCannotHoldIsEscaped) {
    for (const auto& [why, utf8, asName, asValue] : kSpellings) {
        const std::string text = SystemText(utf8).Bytes();

        EXPECT_EQ(SpellName(text), asName) << why;
        EXPECT_EQ(SpellText(text), asValue) << why;
        EXPECT_EQ(ReadSpelling(asValue).Bytes(), text) << why;
        EXPECT_EQ(ReadSpelling(asName).Bytes(), text) << why;
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

// The file before, and once key k of section s is 9.
const std::string kChanges[][3] = {
    {"an empty file gets the section", "", "[s]\nk=9\n"},
    {"a new section goes to the end", "[t]\nk=1\n", "[t]\nk=1\n\n[s]\nk=9\n"},
    {"a new key goes behind the last of its section", "[s]\na=1\n\n; more\n[t]\nk=1\n",
     "[s]\na=1\nk=9\n\n; more\n[t]\nk=1\n"},
    {"a section without keys gets one", "[s]\n\n[t]\n", "[s]\nk=9\n\n[t]\n"},
    {"a value is replaced in its place", "[s]\nk=1\na=2\n", "[s]\nk=9\na=2\n"},
    {"blanks around a value stay", "[s]\n \tk = 1 \t\n", "[s]\n \tk = 9 \t\n"},
    {"an empty value is a value", "[s]\r\nk=\r\na=\r\n", "[s]\r\nk=9\r\na=\r\n"},
    {"the first of equal keys counts", "[s]\nk=1\nk=2\n[s]\nk=3\n", "[s]\nk=9\nk=2\n[s]\nk=3\n"},
    {"a section may come twice", "[s]\na=1\n[t]\n[s]\nk=1\n", "[s]\na=1\n[t]\n[s]\nk=9\n"},
    {"new lines end like the others", "[s]\r\na=1\r\n", "[s]\r\na=1\r\nk=9\r\n"},
    {"a last line without an end gets one", "[s]\na=1", "[s]\na=1\nk=9\n"},
    {"a cut CRLF file goes on as one", "[t]\r\na=1", "[t]\r\na=1\r\n\r\n[s]\r\nk=9\r\n"},
    {"comments hold no keys", "[s]\n;k=1\n#k=1\n", "[s]\nk=9\n;k=1\n#k=1\n"},
    {"what follows a heading is skipped", "[ s ] ; k\nk=1\n", "[ s ] ; k\nk=9\n"},
    {"keys of a broken heading are nobody's", "[s]\na=1\n[t\nk=1\n", "[s]\na=1\nk=9\n[t\nk=1\n"},
    {"lines that are nothing stay", "x\n=\n[s]\n\x01\xFF\nk\nk=1\n]\n",
     "x\n=\n[s]\n\x01\xFF\nk\nk=9\n]\n"},
    {"a zero byte is a byte", std::string("\0\n[s]\n\0k=1\nk=\0\n", 15),
     std::string("\0\n[s]\n\0k=1\nk=9\n", 15)},
    {"a byte order mark belongs to no name", "\xEF\xBB\xBF[s]\nk=1\n", "\xEF\xBB\xBF[s]\nk=9\n"},
};

// The file before, and once key k of section s is gone.
const std::string kRemovals[][3] = {
    {"only its line goes", "; k\n[s]\na=1\nk=1\nb=2\n[t]\nk=1\n", "; k\n[s]\na=1\nb=2\n[t]\nk=1\n"},
    {"the section stays", "[s]\r\nk=1\r\n", "[s]\r\n"},
    {"none of its name is left to count", "[s]\nk=1\na=1\nk=2\n[s]\nk=\n", "[s]\na=1\n[s]\n"},
    {"a last line without an end", "[s]\nk=1", "[s]\n"},
    {"a last line without a value", "[s]\nk=", "[s]\n"},
    {"a key that isn't there", "[s]\n;k=1\nkk=1", "[s]\n;k=1\nkk=1"},
    {"a section that isn't there", "[t]\nk=1\n", "[t]\nk=1\n"},
};

TEST(SettingsText, ARemovalKeepsEveryOtherLine) {
    for (const auto& [why, before, after] : kRemovals) {
        SettingsText text(before);

        text.Remove("s", "k");

        EXPECT_EQ(text.Bytes(), after) << why;
        EXPECT_EQ(text.Find("s", "k"), std::nullopt) << why;
    }
}

TEST(SettingsText, ASectionWithoutKeysIsThere) {
    SettingsText text("[a/b]\n");
    EXPECT_TRUE(text.HasSection("a/b"));
    EXPECT_FALSE(text.HasSection("a"));
    EXPECT_TRUE(text.HasSectionFrom("a/"));
    EXPECT_FALSE(text.HasSectionFrom("a/c"));

    text.AddSection("a/c");
    text.AddSection("a/b");

    EXPECT_EQ(text.Bytes(), "[a/b]\n\n[a/c]\n");
    EXPECT_TRUE(text.HasSectionFrom("a/c"));
}

TEST(SettingsText, AChangeKeepsEveryOtherByte) {
    for (const auto& [why, before, after] : kChanges) {
        SettingsText text(before);

        text.Set("s", "k", "9");

        EXPECT_EQ(text.Bytes(), after) << why;
        EXPECT_EQ(text.Find("s", "k"), "9") << why;
    }
}

TEST(SettingsText, AnyBytesCanBeReadAndTakeAValue) {
    constexpr std::string_view kAlphabet("[]=;#sk \t\r\n\\\0\xEF\xBB\xBF", 16);
    std::mt19937 random(20260101);
    for (int round = 0; round < 20'000; ++round) {
        std::string bytes(random() % 40, '\0');
        for (char& byte : bytes) byte = kAlphabet[random() % kAlphabet.size()];
        SettingsText text(bytes);
        const bool wasThere = text.Find("s", "k").has_value();

        text.Set("s", "k", "9");

        ASSERT_EQ(text.Find("s", "k"), "9") << testing::PrintToString(bytes);
        SettingsText without = text;
        without.Remove("s", "k");
        ASSERT_EQ(without.Find("s", "k"), std::nullopt) << testing::PrintToString(bytes);
        if (wasThere) continue;
        // Nothing but whole lines came in, so without them the old bytes are there again.
        std::size_t same = 0;
        while (same < bytes.size() && bytes[same] == text.Bytes()[same]) ++same;
        ASSERT_TRUE(text.Bytes().ends_with(bytes.substr(same))) << testing::PrintToString(bytes);
    }
}

}  // namespace
}  // namespace orvo
