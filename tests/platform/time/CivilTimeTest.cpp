// Days of the calendar, their text, the clock times of zones, and the classes of moments.
// SPDX-License-Identifier: MIT
#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>
#include <random>
#include <thread>
#include <tuple>

#include <gtest/gtest.h>

#include <platform/time/COleDateTime.h>
#include <platform/time/CTime.h>
#include <platform/time/ZonedTest.h>

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

constexpr std::int64_t kHalfHour = 1800;

// One look at the system's clock: a moment, and the seconds that the local clock shows then.
struct Look {
    std::int64_t moment;
    std::int64_t local;
    CivilTime civil;
};

Look LookAt(std::int64_t moment) {
    const std::time_t time = moment;
    std::tm shown{};
    localtime_r(&time, &shown);
    return {moment,
            moment + shown.tm_gmtoff,
            {shown.tm_year + 1900, shown.tm_mon + 1, shown.tm_mday, shown.tm_hour, shown.tm_min,
             shown.tm_sec}};
}

// The first moment at which the clock shows what it shows at `look`.
std::int64_t FirstMomentOf(const Look& look) {
    std::int64_t first = look.moment;
    for (std::int64_t hours = 1; hours <= 50; ++hours) {
        const Look earlier = LookAt(look.moment - hours * kHalfHour);
        if (earlier.local == look.local) first = earlier.moment;
    }
    return first;
}

class SystemZone : public ZonedTest, public testing::WithParamInterface<const char*> {};

TEST_P(SystemZone, EveryHalfHourFrom1970To2040IsAsTheSystemShowsIt) {
    SetSystemTimeZone(GetParam());
    const std::int64_t end = DaysOfCivil(2040, 1, 1) * 86400;
    Look last = LookAt(-kHalfHour);
    std::int64_t latestLocal = last.local;

    for (std::int64_t moment = 0; moment < end; moment += kHalfHour) {
        const Look look = LookAt(moment);
        ASSERT_EQ(CivilOfMoment(moment), look.civil) << moment;

        const bool isRepeated = look.local <= latestLocal;
        const std::int64_t first = isRepeated ? FirstMomentOf(look) : moment;
        ASSERT_EQ(MomentOfCivil(look.civil), first) << FormatIso(look.civil);

        // A clock time between the two looks is left out, and moved on by the gap.
        for (std::int64_t gone = last.local + kHalfHour; gone < look.local; gone += kHalfHour) {
            CivilTime civil = last.civil;
            civil.second += static_cast<int>(gone - last.local);
            ASSERT_EQ(MomentOfCivil(civil), last.moment + (gone - last.local)) << FormatIso(civil);
        }
        latestLocal = std::max(latestLocal, look.local);
        last = look;
    }
}

// Whole hours; changes of half an hour; a day left out in 2011; changes twice within two months.
INSTANTIATE_TEST_SUITE_P(Zones, SystemZone,
                         testing::Values("Asia/Tokyo", "Europe/Berlin", "America/New_York",
                                         "Australia/Lord_Howe", "Pacific/Apia",
                                         "Africa/Casablanca"));

using ClockChange = ZonedTest;

TEST_F(ClockChange, FieldsOutOfRangeAreCarriedOver) {
    SetSystemTimeZone("Asia/Tokyo");
    const std::tuple<const char*, CivilTime, CivilTime> rows[] = {
        {"a month too many", {2026, 13, 1}, {2027, 1, 1}},
        {"two of them", {2026, 14, 1}, {2027, 2, 1}},
        {"month 0", {2026, 0, 1}, {2025, 12, 1}},
        {"more than a year back", {2026, -12, 1}, {2024, 12, 1}},
        {"more days than a year has", {2026, 1, 400}, {2027, 2, 4}},
        {"a second too many", {2026, 12, 31, 23, 59, 60}, {2027, 1, 1}},
        {"day 0 and hour -1", {2026, 3, 0, -1}, {2026, 2, 27, 23}},
    };
    for (const auto& [why, civil, shown] : rows) {
        EXPECT_EQ(CivilOfMoment(MomentOfCivil(civil)), shown) << why;
    }
}

TEST_F(ClockChange, AChangeOfZoneForgetsTheOneBeforeOnEveryThread) {
    const CivilTime noon{2026, 5, 3, 12, 0, 0};
    SetSystemTimeZone("Asia/Tokyo");
    const std::int64_t tokyo = MomentOfCivil(noon);

    SetSystemTimeZone("UTC");
    std::int64_t utc = 0;
    std::thread([&] { utc = MomentOfCivil(noon); }).join();

    EXPECT_EQ(MomentOfCivil(noon) - tokyo, 9 * 3600);
    EXPECT_EQ(utc - tokyo, 9 * 3600);
}

TEST_F(ClockChange, AMomentWhoseYearFitsNoIntShowsNothing) {
    EXPECT_EQ(CivilOfMoment(std::numeric_limits<std::int64_t>::max()), std::nullopt);
    EXPECT_EQ(CivilOfMoment(std::numeric_limits<std::int64_t>::min()), std::nullopt);
    EXPECT_EQ(CivilOfMoment(DaysOfCivil(2147483650, 1, 1) * 86400), std::nullopt);
}

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
