// Tests of reading dates that users type.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <contracts/IntlTime.h>

#include "LocaleTest.h"

namespace orvo {
namespace {

constexpr int kKept = -1;  // what the outputs hold before

struct TypedRow {
    const char* why;
    const char* picture;
    const char* text;
    int year, month, day;
};

constexpr TypedRow kUnderstood[] = {
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

constexpr TypedRow kRefused[] = {
    {"empty", "M/d/yy", "", 0, 0, 0},
    {"blanks", "M/d/yy", "  ", 0, 0, 0},
    {"a word", "M/d/yy", "tomorrow", 0, 0, 0},
    {"a word behind", "M/d/yy", "5/3/26 noon", 0, 0, 0},
    {"a word between", "M/d/yy", "5/May/26", 0, 0, 0},
    {"month 13", "M/d/yy", "13/3/26", 0, 0, 0},
    {"month 0", "M/d/yy", "0/3/26", 0, 0, 0},
    {"day 0", "M/d/yy", "5/0/26", 0, 0, 0},
    {"day 32 without a month", "d", "32", 0, 0, 0},
    {"February 30", "M/d/yy", "2/30", 0, 0, 0},
    {"February 29 of no leap year", "M/d/yy", "2/29/2027", 0, 0, 0},
    {"of a short one", "M/d/yy", "2/29/27", 0, 0, 0},
    {"one field of three", "M/d/yy", "5", 0, 0, 0},
    {"too many fields", "M/d/yy", "5/3/26/1", 0, 0, 0},
    {"too many for the picture", "M/d", "5/3/26", 0, 0, 0},
    {"too many digits", "M/d/yy", "5/3/20265", 0, 0, 0},
    {"digits in one piece", "yyyy/MM/dd", "20260503", 0, 0, 0},
    {"two dividers", "M/d/yy", "5//3", 0, 0, 0},
    {"a divider in front", "M/d/yy", "/5/3", 0, 0, 0},
    {"a divider behind", "M/d/yy", "5/3/", 0, 0, 0},
    {"a sign twice", "yyyy/MM/dd", "5月3月", 0, 0, 0},
    {"a sign alone", "yyyy/MM/dd", "年5月3日", 0, 0, 0},
    {"an era without a year", "gg y/M/d", "平成", 0, 0, 0},
    {"an era for another field", "gg y/M/d", "平成5月3日", 0, 0, 0},
    {"an era behind month and day", "dd.MM.yy gg", "03.05. 平成", 0, 0, 0},
    {"two eras", "gg y/M/d", "平成昭和5/3/1", 0, 0, 0},
    {"year 0 of an era", "gg y/M/d", "平成0/3/1", 0, 0, 0},
    {"year 2026 of an era", "gg y/M/d", "平成2026/3/1", 0, 0, 0},
    {"a letter of no era", "gg y/M/d", "X5/3/1", 0, 0, 0},
    {"the first year of no era", "gg y/M/d", "元/3/1", 0, 0, 0},
    {"no picture", "", "5/3", 0, 0, 0},
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
    for (const TypedRow& row : kUnderstood) {
        int year = kKept;
        int month = kKept;
        int day = kKept;
        EXPECT_TRUE(CIntlTime().ParseDateFromFormat(FromUtf8(row.picture), FromUtf8(row.text), ':',
                                                    year, month, day))
            << row.why;
        EXPECT_EQ(std::tie(year, month, day), std::tie(row.year, row.month, row.day)) << row.why;
    }
}

TEST_P(TypedDate, WhatIsNotUnderstoodChangesNothing) {
    for (const TypedRow& row : kRefused) {
        int year = 0;
        int month = 0;
        int day = 0;
        EXPECT_FALSE(CIntlTime().ParseDateFromFormat(FromUtf8(row.picture), FromUtf8(row.text), ':',
                                                     year, month, day))
            << row.why;
        EXPECT_EQ(std::tie(year, month, day), std::tie(row.year, row.month, row.day)) << row.why;
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, TypedDate,
                         testing::Values(std::tuple("ja-JP", kJapaneseCodePage),
                                         std::tuple("ja-JP", kUtf8CodePage),
                                         std::tuple("en-US", kUtf8CodePage)));

class TypedByLocale : public LocaleTest {};

TEST_F(TypedByLocale, DigitsOfTheScriptCount) {
    ASSERT_TRUE(SystemLocale::Set("fa-IR"));
    int year = 0;
    int month = 0;
    int day = 0;
    EXPECT_TRUE(
        CIntlTime().ParseDateFromFormat("yyyy/M/d", FromUtf8("۲۰۲۶/۵/۳"), '/', year, month, day));
    EXPECT_EQ(std::tuple(year, month, day), std::tuple(2026, 5, 3));
}

TEST_F(TypedByLocale, AYearWithoutEraCountsInTheEraOfToday) {
    ASSERT_TRUE(SystemLocale::Set("ja-JP-u-ca-japanese"));
    CTime::SetClock(CTime(2018, 12, 31, 0, 0, 0).GetTime());
    int year = 0;
    int month = 0;
    int day = 0;
    EXPECT_TRUE(CIntlTime().ParseDateFromFormat("gg y/M/d", "30/5/3", '/', year, month, day));
    EXPECT_EQ(year, 2018);
}

}  // namespace
}  // namespace orvo
