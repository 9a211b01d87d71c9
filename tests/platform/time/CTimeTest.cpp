// Tests of CTime.
// SPDX-License-Identifier: MIT
#include <limits>

#include <platform/time/CTime.h>

#include "ZonedTest.h"

namespace orvo {
namespace {

class CTimeTest : public ZonedTest {
protected:
    ~CTimeTest() override { CTime::SetClock(-1); }
};

TEST_F(CTimeTest, TheFieldsAreThoseOfTheLocalClock) {
    SetSystemTimeZone("Asia/Tokyo");

    const CTime time(1767193200 - 1);  // 2025-12-31 23:59:59

    EXPECT_EQ(time.GetYear(), 2025);
    EXPECT_EQ(time.GetMonth(), 12);
    EXPECT_EQ(time.GetDay(), 31);
    EXPECT_EQ(time.GetHour(), 23);
    EXPECT_EQ(time.GetMinute(), 59);
    EXPECT_EQ(time.GetSecond(), 59);
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

TEST_F(CTimeTest, TheClockStandsWhereItWasSetUntilItIsGivenBack) {
    CTime::SetClock(86400);
    EXPECT_EQ(CTime::GetCurrentTime().GetTime(), 86400);
    EXPECT_EQ(CTime::GetCurrentTime().GetTime(), 86400);

    CTime::SetClock(-1);
    EXPECT_GE(CTime::GetCurrentTime().GetTime(), std::time(nullptr) - 60);
}

}  // namespace
}  // namespace orvo
