// The locale of the system, and small text functions on its code page.
// SPDX-License-Identifier: MIT
#include <set>
#include <tuple>

#include <gtest/gtest.h>

#include <platform/text/MultiByte.h>
#include <support/Environment.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

TEST(MultiByte, LeadBytesDependOnTheCodePage) {
    const std::tuple<unsigned, std::set<std::pair<int, int>>> rows[] = {
        {932, {{0x81, 0x9F}, {0xE0, 0xFC}}}, {65001, {{0xC2, 0xF4}}}, {1252, {}}};
    for (const auto& [page, ranges] : rows) {
        const LocaleInForce locale("en-US", page);
        for (int byte = 0; byte < 256; ++byte) {
            bool want = false;
            for (const auto& [first, last] : ranges) want |= first <= byte && byte <= last;
            EXPECT_EQ(IsDBCSLeadByte(static_cast<unsigned char>(byte)) != 0, want) << byte;
        }
    }
}

constexpr std::tuple<const char*, unsigned, unsigned, bool> kPrintRows[] = {
    {"blank", 65001, 0x20, true},
    {"tab", 65001, 0x09, false},
    {"delete", 65001, 0x7F, false},
    {"a code point", 65001, 0x1F600, true},
    {"a surrogate", 65001, 0xD800, false},
    {"beyond Unicode", 65001, 0x110000, false},
    {"no character yet", 65001, 0x0378, false},
    {"blank", 932, 0x20, true},
    {"delete", 932, 0x7F, false},
    {"half-width katakana", 932, 0xA1, true},
    {"its end", 932, 0xDF, true},
    {"a byte of no character", 932, 0xA0, false},
    {"a lead byte alone", 932, 0x81, false},
    {"kanji", 932, 0x955C, true},
    {"no trail byte", 932, 0x8131, false},
    {"an unassigned pair", 932, 0x859F, false},
    {"too large", 932, 0x18140, false},
    {"a letter of the page", 1252, 0xE4, true},
    {"a control byte of the page", 1252, 0x81, false},
    {"no 8-bit character", 1252, 0x0141, false},
};

TEST(MultiByte, WhatCanBePrintedDependsOnTheCodePage) {
    for (const auto& [why, page, character, want] : kPrintRows) {
        const LocaleInForce locale("en-US", page);
        EXPECT_EQ(_ismbcprint(character) != 0, want) << why << " on " << page;
    }
}

int Compare(const char* left, const char* right) {
    return _mbscmp(reinterpret_cast<const unsigned char*>(left),
                   reinterpret_cast<const unsigned char*>(right));
}

TEST(MultiByte, ComparisonIsByTheCodesOfCharacters) {
    const LocaleInForce japanese("ja-JP", 932);
    EXPECT_EQ(Compare("\xB1", "\x82\xA0"), -1);
    EXPECT_EQ(Compare("\x82\xA0", "\xB1"), 1);
    EXPECT_EQ(Compare("a\x82\xA0", "a\x82\xA0"), 0);
    EXPECT_EQ(Compare("a", "ab"), -1);
    EXPECT_EQ(Compare("", nullptr), 0);

    const LocaleInForce western("en-US", 1252);
    EXPECT_EQ(Compare("\xB1", "\x82\xA0"), 1);
}

constexpr std::tuple<const char*, unsigned, const char*, int, const char*> kCopyRows[] = {
    {"all of it", 65001, "abc", 9, "abc"},
    {"room for the end only", 65001, "abc", 1, ""},
    {"no character of UTF-8 is split", 65001, "aあ", 4, "a"},
    {"whole characters", 65001, "aあb", 5, "aあ"},
    {"a pair of bytes is split", 932, "a\x82\xA0", 3, "a\x82"},
    {"nothing is copied", 65001, "abc", 0, "~~~~~~~~~"},
};

TEST(MultiByte, ACopyEndsWithinItsRoom) {
    for (const auto& [why, page, source, count, want] : kCopyRows) {
        const LocaleInForce locale("en-US", page);
        char target[] = "~~~~~~~~~";
        EXPECT_EQ(lstrcpyn(target, source, count), target) << why;
        EXPECT_STREQ(target, want) << why;
        EXPECT_EQ(target[8], '~') << why;
    }
}

using EnvironmentRow =
    std::tuple<const char*, const char*, const char*, const char*, const char*, unsigned>;
constexpr EnvironmentRow kEnvironmentRows[] = {
    {"LC_ALL comes first", "de_DE.UTF-8@euro", "fr_FR", "it_IT", "de-DE", 65001},
    {"then LC_CTYPE", "", "fr_FR", "it_IT", "fr-FR", 65001},
    {"then LANG", "", "", "ja_JP.UTF-8", "ja-JP", 932},
    {"C is English", "C.UTF-8", "", "de_DE", "en-US", 65001},
    {"so is POSIX", "", "", "POSIX", "en-US", 65001},
    {"so is nothing", "", "", "", "en-US", 65001},
    {"so is nonsense", "", "", "!?", "en-US", 65001},
};

TEST(SystemLocale, ComesFromTheEnvironment) {
    const LocaleInForce former("en-US");
    Environment environment;
    for (const auto& [why, all, type, lang, tag, page] : kEnvironmentRows) {
        environment.Set("LC_ALL", all);
        environment.Set("LC_CTYPE", type);
        environment.Set("LANG", lang);
        const unsigned before = SystemLocale::Generation();
        SystemLocale::Reset();
        EXPECT_NE(SystemLocale::Generation(), before);
        EXPECT_EQ(SystemLocale::Tag(), tag) << why;
        EXPECT_EQ(GetACP(), page) << why;
    }
}

TEST(SystemLocale, AMalformedTagOrAnUnknownPageChangesNothing) {
    const LocaleInForce german("de-DE", 1252);
    const unsigned generation = SystemLocale::Generation();

    for (const char* tag : {"", "de_DE", "de-", "und", "x-private", "de-DE-toolongasubtag"})
        EXPECT_FALSE(SystemLocale::Set(tag)) << tag;
    EXPECT_FALSE(SystemLocale::Set("fr-FR", 936));

    EXPECT_EQ(SystemLocale::Tag(), "de-DE");
    EXPECT_EQ(SystemLocale::Language(), "de");
    EXPECT_EQ(GetACP(), 1252u);
    EXPECT_EQ(SystemLocale::Generation(), generation);
}

constexpr const char* kCalendarRows[][2] = {
    {"en-US", "1"}, {"ja-JP", "1"}, {"ja-JP-u-ca-japanese", "3"}, {"zh-TW-u-ca-roc", "4"},
    {"th-TH", "7"}, {"ar-SA", "6"}, {"ko-KR-u-ca-dangi", "5"},    {"he-IL-u-ca-hebrew", "8"},
};

TEST(SystemLocale, TheCalendarTypeFollowsTheTag) {
    for (const auto& [tag, number] : kCalendarRows) {
        const LocaleInForce locale(tag);
        char buffer[] = "~~~";
        EXPECT_EQ(GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_ICALENDARTYPE, buffer, 2), 2);
        EXPECT_STREQ(buffer, number) << tag;
    }
}

TEST(SystemLocale, AFailedQuestionLeavesTheBufferUntouched) {
    char buffer[] = "~~";
    EXPECT_EQ(GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_ICALENDARTYPE, nullptr, 0), 2);
    EXPECT_EQ(GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_ICALENDARTYPE, buffer, 1), 0);
    EXPECT_EQ(GetLocaleInfoA(1, LOCALE_ICALENDARTYPE, buffer, 2), 0);
    EXPECT_EQ(GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, 1, buffer, 2), 0);
    EXPECT_STREQ(buffer, "~~");
}

}  // namespace
}  // namespace orvo
