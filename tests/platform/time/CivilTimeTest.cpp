// Tests of the arithmetic of civil days and of their ISO 8601 text.
// SPDX-License-Identifier: MIT
#include <chrono>

#include <gtest/gtest.h>

#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

TEST(CivilDay, EveryDayOfTheYears0To4000IsThatOfTheStandardCalendar) {
    using namespace std::chrono;
    const sys_days end{year{4000} / 1 / 1};
    for (sys_days day{year{0} / 1 / 1}; day < end; day += days{1}) {
        const year_month_day want{day};
        const CivilTime civil{int{want.year()}, static_cast<int>(unsigned{want.month()}),
                              static_cast<int>(unsigned{want.day()})};
        const std::int64_t number = day.time_since_epoch().count();
        ASSERT_EQ(DaysOfCivil(civil.year, civil.month, civil.day), number);
        ASSERT_EQ(CivilOfDays(number), civil) << number;
    }
}

TEST(CivilDay, MonthsAndDaysOutOfRangeAreCarriedOver) {
    EXPECT_EQ(DaysOfCivil(2026, 14, 1), DaysOfCivil(2027, 2, 1));
    EXPECT_EQ(DaysOfCivil(2026, 0, 1), DaysOfCivil(2025, 12, 1));
    EXPECT_EQ(DaysOfCivil(2026, -12, 1), DaysOfCivil(2024, 12, 1));
    EXPECT_EQ(DaysOfCivil(2026, 3, 0), DaysOfCivil(2026, 2, 28));
    EXPECT_EQ(DaysOfCivil(2026, 1, 400), DaysOfCivil(2027, 2, 4));
}

TEST(IsoText, ADayAndATimeComeBackAsTheyWere) {
    const CivilTime evening{2026, 12, 24, 17, 5, 9};

    EXPECT_EQ(FormatIso(evening), "2026-12-24T17:05:09");
    EXPECT_EQ(FormatIsoDay(evening), "2026-12-24");
    EXPECT_EQ(FormatIsoDay({33, 1, 2}), "0033-01-02");
    EXPECT_EQ(ParseIso("2026-12-24T17:05:09"), evening);
    EXPECT_EQ(ParseIso("2026-12-24"), (CivilTime{2026, 12, 24}));
    EXPECT_EQ(ParseIso("2024-02-29"), (CivilTime{2024, 2, 29}));
}

constexpr std::pair<const char*, const char*> kBadTexts[] = {
    {"empty", ""},
    {"no leap year", "2026-02-29"},
    {"no month 13", "2026-13-01"},
    {"no month 0", "2026-00-10"},
    {"no day 0", "2026-01-00"},
    {"no hour 24", "2026-12-24T24:00:00"},
    {"no minute 60", "2026-12-24T17:60:00"},
    {"no second 60", "2026-12-24T17:00:60"},
    {"a sign", "-026-12-24"},
    {"a sign in the clock", "2026-12-24T17:-1:00"},
    {"another divider", "2026/12/24"},
    {"a blank for the T", "2026-12-24 17:00:00"},
    {"no seconds", "2026-12-24T17:00"},
    {"a zone", "2026-12-24T17:00:00Z"},
    {"one digit", "2026-1-02"},
};

TEST(IsoText, ATextOfAnotherFormGivesNothing) {
    for (const auto& [why, text] : kBadTexts) EXPECT_EQ(ParseIso(text), std::nullopt) << why;
}

}  // namespace
}  // namespace orvo
