// Tests of COleDateTime.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <limits>
#include <random>

#include <platform/time/COleDateTime.h>

#include "ZonedTest.h"

namespace orvo {
namespace {

CivilTime FieldsOf(const COleDateTime& date) {
    return {date.GetYear(), date.GetMonth(),  date.GetDay(),
            date.GetHour(), date.GetMinute(), date.GetSecond()};
}

constexpr CivilTime kNoFields{-1, -1, -1, -1, -1, -1};

struct DateRow {
    const char* why;
    double date;
    CivilTime want;
};

const DateRow kDates[] = {
    {"the origin", 0, {1899, 12, 30, 0, 0, 0}},
    {"the first day of 1970", 25569, {1970, 1, 1, 0, 0, 0}},
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
    for (const DateRow& row : kDates) {
        const COleDateTime date(row.date);

        EXPECT_EQ(FieldsOf(date), row.want) << row.why;
        EXPECT_EQ(date.GetStatus() == COleDateTime::valid, row.want != kNoFields) << row.why;
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
