// Dates that the user types or moves by days.
// SPDX-License-Identifier: MIT
#include <limits>
#include <tuple>

#include <contracts/Dates.h>
#include <contracts/TextServices.h>

#include "LocaleTest.h"

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::Optional;

constexpr int kKept = -1;

constexpr std::tuple<const char*, const char*, const char*, int, int, int> kUnderstood[] = {
    {"in the picture's order", "M/d/yy", "5/3/26", 26, 5, 3},
    {"another order", "dd.MM.yyyy", "3.5.2026", 2026, 5, 3},
    {"two fields have no year", "M/d/yy", "5/3", kKept, 5, 3},
    {"nor in another order", "dd.MM.yyyy", "3.5", kKept, 5, 3},
    {"nor where the year is first", "yyyy/MM/dd", "5/3", kKept, 5, 3},
    {"other dividers", "M/d/yy", "5-3.26", 26, 5, 3},
    {"blanks", "M/d/yy", "  5 3   2026 ", 2026, 5, 3},
    {"blanks beside a divider", "M/d/yy", "5 / 3 / 26", 26, 5, 3},
    {"the separator", "M/d/yy", "5:3:26", 26, 5, 3},
    {"the picture's last sign", "dd. MM. yyyy.", "3. 5. 2026.", 2026, 5, 3},
    {"and without it", "dd. MM. yyyy.", "3.5.2026", 2026, 5, 3},
    {"a picture of two fields", "yyyy-MM", "2026-5", 2026, 5, kKept},
    {"a picture of one", "d", "31", kKept, kKept, 31},
    {"February 29 of a leap year", "yyyy/MM/dd", "2028/2/29", 2028, 2, 29},
    {"of a short one", "M/d/yy", "2/29/28", 28, 2, 29},
    {"and without a year", "M/d/yy", "2/29", kKept, 2, 29},
    {"year 0 is a short one", "M/d/yy", "2/29/00", 0, 2, 29},
    {"full-width digits and dividers", "yyyy/MM/dd", "２０２６／０５／０３", 2026, 5, 3},
    {"a full-width blank", "yyyy/MM/dd", "2026　5　3", 2026, 5, 3},
    {"signs for the fields", "yyyy/MM/dd", "2026年5月3日", 2026, 5, 3},
    {"they need no order", "M/d/yy", "2026年5月3日", 2026, 5, 3},
    {"nor all of the fields", "yyyy/MM/dd", "2026年5月", 2026, 5, kKept},
    {"month and day", "yyyy/MM/dd", "5月3日", kKept, 5, 3},
    {"blanks between them", "yyyy/MM/dd", "2026年 5月 3日", 2026, 5, 3},
    {"an era", "gg y/M/d", "平成 5/3/1", 1993, 3, 1},
    {"without a blank", "gg y/M/d", "平成5/3/1", 1993, 3, 1},
    {"by its first character", "gg y/M/d", "昭64/1/7", 1989, 1, 7},
    {"by its letter", "gg y/M/d", "R8.5.3", 2026, 5, 3},
    {"by a small one", "gg y/M/d", "t1/8/1", 1912, 8, 1},
    {"by a full-width one", "gg y/M/d", "Ｈ５／３／１", 1993, 3, 1},
    {"the oldest", "gg y/M/d", "明治45/7/29", 1912, 7, 29},
    {"with signs", "gg y年M月d日", "令和8年5月3日", 2026, 5, 3},
    {"its first year", "gg y/M/d", "令和元年5月1日", 2019, 5, 1},
    {"an era where the year comes last", "M/d/yy", "5/3/H5", 1993, 5, 3},
    {"an era before all where the year comes last", "M/d/yy", "H5/3/1", 1993, 3, 1},
    {"an era behind the year", "dd.MM.yy gg", "03.05.05 平成", 1993, 5, 3},
    {"no era: the one of today", "gg y/M/d", "8/5/3", 2026, 5, 3},
    {"a Western year needs none", "gg y/M/d", "1999/5/3", 1999, 5, 3},
    {"an era year alone", "gg y/M/d", "平成5年", 1993, kKept, kKept},
    {"February 29 of an era's leap year", "gg y/M/d", "R10/2/29", 2028, 2, 29},
};

constexpr const char* kRefused[][3] = {
    {"empty", "M/d/yy", ""},
    {"blanks", "M/d/yy", "  "},
    {"a word", "M/d/yy", "tomorrow"},
    {"a word behind", "M/d/yy", "5/3/26 noon"},
    {"a word between", "M/d/yy", "5/May/26"},
    {"month 13", "M/d/yy", "13/3/26"},
    {"month 0", "M/d/yy", "0/3/26"},
    {"day 0", "M/d/yy", "5/0/26"},
    {"day 32 without a month", "d", "32"},
    {"February 30", "M/d/yy", "2/30"},
    {"February 29 of no leap year", "M/d/yy", "2/29/2027"},
    {"of a short one", "M/d/yy", "2/29/27"},
    {"one field of three", "M/d/yy", "5"},
    {"too many fields", "M/d/yy", "5/3/26/1"},
    {"too many for the picture", "M/d", "5/3/26"},
    {"too many digits", "M/d/yy", "5/3/20265"},
    {"digits in one piece", "yyyy/MM/dd", "20260503"},
    {"two dividers", "M/d/yy", "5//3"},
    {"a divider in front", "M/d/yy", "/5/3"},
    {"a divider behind", "M/d/yy", "5/3/"},
    {"a sign twice", "yyyy/MM/dd", "5月3月"},
    {"a sign alone", "yyyy/MM/dd", "年5月3日"},
    {"an era without a year", "gg y/M/d", "平成"},
    {"an era for another field", "gg y/M/d", "平成5月3日"},
    {"an era behind month and day", "dd.MM.yy gg", "03.05. 平成"},
    {"two eras", "gg y/M/d", "平成昭和5/3/1"},
    {"year 0 of an era", "gg y/M/d", "平成0/3/1"},
    {"year 2026 of an era", "gg y/M/d", "平成2026/3/1"},
    {"a letter of no era", "gg y/M/d", "X5/3/1"},
    {"the first year of no era", "gg y/M/d", "元/3/1"},
    {"no picture", "", "5/3"},
};

class TypedDate : public LocaleTest,
                  public testing::WithParamInterface<std::tuple<const char*, unsigned>> {
protected:
    void SetUp() override {
        const auto& [tag, page] = GetParam();
        ASSERT_TRUE(SystemLocale::Set(tag, page));
    }
};

TEST_P(TypedDate, WhatIsUnderstoodIsGivenAndTheRestKept) {
    for (const auto& [why, picture, text, year, month, day] : kUnderstood) {
        EXPECT_THAT(Typed(SystemText(picture), text), Optional(ElementsAre(year, month, day)))
            << why;
    }
}

TEST_P(TypedDate, WhatIsNotUnderstoodChangesNothing) {
    for (const auto& [why, picture, text] : kRefused) {
        EXPECT_EQ(Typed(SystemText(picture), text), std::nullopt) << why;
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, TypedDate,
                         testing::Values(std::tuple("ja-JP", kJapaneseCodePage),
                                         std::tuple("ja-JP", kUtf8CodePage),
                                         std::tuple("en-US", kUtf8CodePage)));

using TypedByLocale = LocaleTest;

TEST_F(TypedByLocale, DigitsOfTheScriptCount) {
    ASSERT_TRUE(SystemLocale::Set("fa-IR"));
    EXPECT_THAT(Typed("yyyy/M/d", "۲۰۲۶/۵/۳"), Optional(ElementsAre(2026, 5, 3)));
}

TEST_F(TypedByLocale, AYearWithoutEraCountsInTheEraOfToday) {
    ASSERT_TRUE(SystemLocale::Set("ja-JP-u-ca-japanese"));
    CTime::SetClock(CTime(2018, 12, 31, 0, 0, 0).GetTime());
    EXPECT_THAT(Typed("gg y/M/d", "30/5/3"), Optional(ElementsAre(2018, 5, 3)));
}

using IncrDateTest = LocaleTest;

constexpr std::tuple<const char*, const char*, CivilTime, int, CivilTime> kMoves[] = {
    {"tomorrow", "Asia/Tokyo", {2026, 5, 3, 23, 59, 59}, 1, {2026, 5, 4, 23, 59, 59}},
    {"over the end of February", "Asia/Tokyo", {2028, 2, 28}, 7, {2028, 3, 6}},
    {"back over the year's start", "Asia/Tokyo", {2026, 1, 1}, -1, {2025, 12, 31}},
    {"nowhere", "Asia/Tokyo", {2026, 5, 3, 1, 2, 3}, 0, {2026, 5, 3, 1, 2, 3}},
    {"over a change of the clock", "Europe/Berlin", {2026, 3, 28, 12}, 1, {2026, 3, 29, 12}},
    {"also over the one in autumn", "Europe/Berlin", {2026, 10, 24}, 7, {2026, 10, 31}},
    {"a time left out moves on", "Europe/Berlin", {2026, 3, 28, 2, 30}, 1, {2026, 3, 29, 3, 30}},
    {"over the day left out", "Pacific/Apia", {2011, 12, 29, 8}, 2, {2011, 12, 31, 8}},
};

TEST_F(IncrDateTest, TheLocalTimeOfDayStays) {
    for (const auto& [why, zone, from, days, to] : kMoves) {
        SetSystemTimeZone(zone);
        long date = MomentOfCivil(from);

        EXPECT_TRUE(IncrDate(date, days)) << why;
        EXPECT_EQ(CivilOfMoment(date), to) << why;
    }
}

constexpr std::tuple<const char*, long, int> kUnmoved[] = {
    {"no date", kMaxDate, -1},
    {"above all dates", kMaxDate + 1, -7},
    {"nothing typed", -1, 1},
    {"the result would be negative", 3600, -1},
    {"the result would be no date", kMaxDate - 86400, 1},
    {"the result would be above all dates", kMaxDate - 1, 7},
    {"far beyond", 0, std::numeric_limits<int>::max()},
    {"far before", 0, std::numeric_limits<int>::min()},
};

TEST_F(IncrDateTest, WhatIsNoDateIsRefusedAndStays) {
    SetSystemTimeZone("UTC");
    for (const auto& [why, refused, days] : kUnmoved) {
        long date = refused;
        EXPECT_FALSE(IncrDate(date, days)) << why;
        EXPECT_EQ(date, refused) << why;
    }
}

}  // namespace
}  // namespace orvo
