// Tests of moments and what the local clock shows at them, against the system's zone tables.
// SPDX-License-Identifier: MIT
#include <ctime>
#include <limits>
#include <thread>

#include <platform/time/TimeZone.h>

#include "ZonedTest.h"

namespace orvo {
namespace {

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

struct ChangeRow {
    const char *why, *zone;
    CivilTime civil, shown;
    int offset;  // seconds east of Greenwich at the moment that is given
};

constexpr const char* kBerlin = "Europe/Berlin";
constexpr const char* kTokyo = "Asia/Tokyo";
constexpr ChangeRow kChanges[] = {
    {"left out in spring", kBerlin, {2026, 3, 29, 2, 30}, {2026, 3, 29, 3, 30}, 7200},
    {"the first after the gap", kBerlin, {2026, 3, 29, 3}, {2026, 3, 29, 3}, 7200},
    {"the first of two", kBerlin, {2026, 10, 25, 2, 30}, {2026, 10, 25, 2, 30}, 7200},
    {"a day left out", "Pacific/Apia", {2011, 12, 30, 12}, {2011, 12, 31, 12}, 14 * 3600},
    {"a month too many", kTokyo, {2026, 13, 1}, {2027, 1, 1}, 9 * 3600},
    {"a second too many", kTokyo, {2026, 12, 31, 23, 59, 60}, {2027, 1, 1}, 32400},
    {"day 0 and hour -1", kTokyo, {2026, 3, 0, -1}, {2026, 2, 27, 23}, 32400},
};

using ClockChange = ZonedTest;

TEST_F(ClockChange, AClockTimeStandsForOneMoment) {
    for (const ChangeRow& row : kChanges) {
        SetSystemTimeZone(row.zone);

        const std::int64_t moment = MomentOfCivil(row.civil);

        EXPECT_EQ(CivilOfMoment(moment), row.shown) << row.why;
        EXPECT_EQ(LookAt(moment).local - moment, row.offset) << row.why;
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

}  // namespace
}  // namespace orvo
