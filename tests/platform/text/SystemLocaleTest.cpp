// The locale of the system: environment, tags, code page and calendar.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <support/Environment.h>
#include <support/LocaleInForce.h>

namespace orvo {

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

}  // namespace orvo
