// Tests of the way between the two forms of dates, and of their range.
// SPDX-License-Identifier: MIT
#include <limits>

#include <gtest/gtest.h>

#include <orvoshare/text/DateConversion.h>
#include <platform/time/COleDateTime.h>
#include <platform/time/CTime.h>
#include <platform/time/TimeZone.h>
#include <platform/time/ZonedTest.h>

namespace orvo {
namespace {

constexpr const char* kZones[] = {"UTC", "Asia/Tokyo", "America/Los_Angeles", "Europe/London",
                                  "Pacific/Kiritimati"};
constexpr unsigned long kNone = ~0UL;

long Local(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return CTime(year, month, day, hour, minute, second).GetTime();
}

double Basic(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return COleDateTime(year, month, day, hour, minute, second);
}

class DateConversion : public ZonedTest {};

TEST_F(DateConversion, TheRangeIsOfLocalTimeWithItsFirstMomentAndWithoutItsEnd) {
    for (const char* zone : kZones) {
        SetSystemTimeZone(zone);
        EXPECT_EQ(IsDateWithOrvoRange(Local(1970, 1, 1)), 1) << zone;
        EXPECT_EQ(IsDateWithOrvoRange(Local(1970, 1, 1) - 1), 0) << zone;
        EXPECT_EQ(IsDateWithOrvoRange(Local(2032, 1, 1) - 1), 1) << zone;
        EXPECT_EQ(IsDateWithOrvoRange(Local(2032, 1, 1)), 0) << zone;
    }
}

TEST_F(DateConversion, TheRangeBeginsADayLaterWhereTheFirstMomentMeansNoDate) {
    SetSystemTimeZone("ODD-00:00:01");  // a second before Greenwich
    ASSERT_EQ(Local(1970, 1, 1), -1);
    EXPECT_EQ(IsDateWithOrvoRange(-1), 0);
    EXPECT_EQ(IsDateWithOrvoRange(Local(1970, 1, 2) - 1), 0);
    EXPECT_EQ(IsDateWithOrvoRange(Local(1970, 1, 2)), 1);
}

TEST_F(DateConversion,
       ABasicDateIsTheMomentAtWhichTheLocalClockShowsItAndTheCheckedFormHasTheRange) {
    for (const char* zone : kZones) {
        SetSystemTimeZone(zone);
        const double basic = Basic(2026, 5, 3, 17, 30, 59);
        const auto date = static_cast<unsigned long>(Local(2026, 5, 3, 17, 30, 59));
        EXPECT_EQ(Vb2CDateHelper(basic), date) << zone;
        EXPECT_EQ(OrvoVb2CDate(basic), date) << zone;
        EXPECT_EQ(C2VbDateHelper(static_cast<long>(date)), basic) << zone;
        EXPECT_EQ(Vb2CDateHelper(Basic(2032, 1, 1)), static_cast<unsigned long>(Local(2032, 1, 1)));
        EXPECT_EQ(OrvoVb2CDate(Basic(2032, 1, 1)), kNone) << zone;
        EXPECT_EQ(OrvoVb2CDate(Basic(1969, 12, 30)), kNone) << zone;
        EXPECT_NE(OrvoVb2CDate(Basic(1970, 1, 1, 0, 0, 1)), kNone) << zone;
    }
}

TEST_F(DateConversion, ANumberThatIsNoDateGivesNone) {
    for (const double number : {1e300, -1e300, std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::infinity(), 3e6, -7e5}) {
        EXPECT_EQ(Vb2CDateHelper(number), kNone) << number;
        EXPECT_EQ(OrvoVb2CDate(number), kNone) << number;
    }
}

TEST_F(DateConversion, OnlyMomentsWithALocalTimeAreValid) {
    EXPECT_EQ(IsValidCDate(0), 1);
    EXPECT_EQ(IsValidCDate(Local(2100, 1, 1)), 1);
    EXPECT_EQ(IsValidCDate(std::numeric_limits<long>::max()), 0);
    EXPECT_EQ(IsDateWithOrvoRange(std::numeric_limits<long>::max()), 0);
    EXPECT_EQ(IsDateWithOrvoRange(std::numeric_limits<long>::min()), 0);
    EXPECT_EQ(C2VbDateHelper(std::numeric_limits<long>::max()), 0);
}

}  // namespace
}  // namespace orvo
