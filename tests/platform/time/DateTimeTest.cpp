// CTime and COleDateTime: moments, numbers and their fields.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <limits>
#include <random>
#include <tuple>

#include <platform/time/COleDateTime.h>
#include <platform/time/CTime.h>

#include "ZonedTest.h"

namespace orvo {
namespace {

using CTimeTest = ZonedTest;

TEST_F(CTimeTest, TheFieldsAreThoseOfTheLocalClock) {
    SetSystemTimeZone("Asia/Tokyo");

    const CTime time(1767193200 - 1);  // 2025-12-31 23:59:59

    EXPECT_EQ(FieldsOf(time), (CivilTime{2025, 12, 31, 23, 59, 59}));
    EXPECT_EQ(time.GetDayOfWeek(), 4);
    EXPECT_EQ(CTime(2025, 12, 31, 23, 59, 59), time);
}

TEST_F(CTimeTest, TheDayOfTheWeekRunsFrom1ForSundayAlsoBefore1970) {
    SetSystemTimeZone("UTC");
    EXPECT_EQ(CTime(2026, 5, 3, 0, 0, 0).GetDayOfWeek(), 1);
    EXPECT_EQ(CTime(2026, 5, 9, 0, 0, 0).GetDayOfWeek(), 7);
    EXPECT_EQ(CTime(1969, 12, 28, 0, 0, 0).GetDayOfWeek(), 1);
    EXPECT_EQ(CTime(1969, 12, 27, 0, 0, 0).GetDayOfWeek(), 7);
}

TEST_F(CTimeTest, TheDaylightFlagPicksOneOfTwoMoments) {
    SetSystemTimeZone("Europe/Berlin");
    const CTime summer(2026, 10, 25, 2, 30, 0, 1);
    const CTime winter(2026, 10, 25, 2, 30, 0, 0);

    EXPECT_EQ(winter - summer, CTimeSpan(3600));
    EXPECT_EQ(CTime(2026, 10, 25, 2, 30, 0, -1), summer);
}

TEST_F(CTimeTest, ATimeThatCannotBeRepresentedIsMinusOne) {
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    EXPECT_EQ(CTime(most, 13, 1, 0, 0, 0).GetTime(), -1);
    EXPECT_EQ(CTime(most, 13, 1, 0, 0, 0, 0).GetTime(), -1);
    EXPECT_EQ(CTime(least, -20, 1, 0, 0, 0).GetTime(), -1);
    EXPECT_EQ(CTime(least, 1, 1, 0, 0, 0, 1).GetTime(), -1);
    EXPECT_EQ(CTime(2026, least, 1, 0, 0, 0, 1).GetTime(), -1);
}

TEST_F(CTimeTest, AMomentWithoutLocalTimeLeavesTheBufferAlone) {
    std::tm buffer{};
    buffer.tm_year = 77;

    const CTime beyond(std::numeric_limits<std::time_t>::max());

    EXPECT_EQ(beyond.GetLocalTm(&buffer), nullptr);
    EXPECT_EQ(buffer.tm_year, 77);
    EXPECT_EQ(beyond.GetYear(), -1);
    EXPECT_EQ(beyond.GetDayOfWeek(), -1);
    EXPECT_EQ(CTime(0).GetLocalTm(&buffer), &buffer);
    EXPECT_EQ(buffer.tm_year, CTime(0).GetYear() - 1900);
}

constexpr CivilTime kNoFields{-1, -1, -1, -1, -1, -1};

const std::tuple<const char*, double, CivilTime> kDates[] = {
    {"the origin", 0, {1899, 12, 30, 0, 0, 0}},
    {"the fraction is the time of day", 2.5, {1900, 1, 1, 12, 0, 0}},
    {"and counts forward before the origin", -1.25, {1899, 12, 29, 6, 0, 0}},
    {"half a second and more is the next one", 0.75 + 0.51 / 86400, {1899, 12, 30, 18, 0, 1}},
    {"less is not", 0.75 + 0.49 / 86400, {1899, 12, 30, 18, 0, 0}},
    {"the last half second is the next day", 1.999999, {1900, 1, 1, 0, 0, 0}},
    {"also before the origin", -1.999999, {1899, 12, 30, 0, 0, 0}},
    {"the first second", -657434, {100, 1, 1, 0, 0, 0}},
    {"the first day's noon", -657434.5, {100, 1, 1, 12, 0, 0}},
    {"the last second", 2958465.99999, {9999, 12, 31, 23, 59, 59}},
    {"before the first year", -657435, kNoFields},
    {"after the last year", 2958466, kNoFields},
    {"rounded beyond the last year", 2958465.999999, kNoFields},
    {"no number", std::nan(""), kNoFields},
    {"no end", -std::numeric_limits<double>::infinity(), kNoFields},
};

TEST(COleDateTimeValue, ItsFieldsAreThoseOfTheNearestSecond) {
    for (const auto& [why, number, want] : kDates) {
        const COleDateTime date(number);

        EXPECT_EQ(FieldsOf(date), want) << why;
        EXPECT_EQ(date.GetStatus() == COleDateTime::valid, want != kNoFields) << why;
    }
}

TEST(COleDateTimeValue, EverySecondComesBackFromItsNumber) {
    std::mt19937 random(20260503);
    std::uniform_int_distribution<std::int64_t> days(DaysOfCivil(100, 1, 1),
                                                     DaysOfCivil(9999, 12, 31));
    std::uniform_int_distribution<int> seconds(0, 86399);
    for (int i = 0; i < 200000; ++i) {
        CivilTime civil = CivilOfDays(days(random));
        const int second = seconds(random);
        civil.hour = second / 3600;
        civil.minute = second / 60 % 60;
        civil.second = second % 60;

        const COleDateTime date(civil.year, civil.month, civil.day, civil.hour, civil.minute,
                                civil.second);

        ASSERT_EQ(FieldsOf(COleDateTime(double{date})), civil);
    }
}

constexpr CivilTime kBadFields[] = {
    {99, 12, 31}, {10000, 1, 1},    {2026, 13, 1},    {2026, 0, 1},        {2026, 2, 29},
    {2026, 1, 0}, {2026, 1, 1, 24}, {2026, 1, 1, -1}, {2026, 1, 1, 0, 60}, {2026, 1, 1, 0, 0, 60}};

TEST(COleDateTimeValue, FieldsThatNoDateHasMakeItInvalid) {
    for (const CivilTime& bad : kBadFields) {
        const COleDateTime date(bad.year, bad.month, bad.day, bad.hour, bad.minute, bad.second);

        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid) << FormatIso(bad);
        EXPECT_EQ(FieldsOf(date), kNoFields) << FormatIso(bad);
    }
}

using COleDateTimeOfMoment = ZonedTest;

TEST_F(COleDateTimeOfMoment, ItTakesTheLocalTime) {
    SetSystemTimeZone("Asia/Tokyo");

    COleDateTime date(std::time_t{0});
    EXPECT_EQ(FieldsOf(date), (CivilTime{1970, 1, 1, 9, 0, 0}));
    EXPECT_EQ(double{date}, 25569.375);

    date = std::numeric_limits<std::time_t>::max();
    EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
    date = std::time_t{86400};
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
}

}  // namespace
}  // namespace orvo
