// Tests of the way between the two forms of dates, their range, and the year in a typed date.
// SPDX-License-Identifier: MIT
#include <limits>
#include <tuple>

#include <orvoshare/text/DateConversion.h>
#include <platform/text/SystemText.h>
#include <platform/time/COleDateTime.h>
#include <platform/time/CTime.h>
#include <platform/time/ZonedTest.h>
#include <support/LocaleInForce.h>

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

constexpr int kAsBefore = -77;

using Reading = std::pair<int, int>;  // the result and the year

Reading Read(std::string_view utf8) {
    int year = kAsBefore;
    const int result = GetYearFromDateString(SystemText(utf8), year);
    return {result, year};
}

TEST(YearFromDateString, AFullYearIsHeldToTheRange) {
    const std::tuple<const char*, const char*, const char*, Reading> rows[] = {
        {"year first", "sv-SE", "2026-05-03", {1, 2026}},
        {"a separator of two characters", "hr-HR", "03. 05. 2026.", {1, 2026}},
        {"the first year", "en-GB", "1/1/1970", {1, 1970}},
        {"the year before", "en-GB", "1/1/1969", {0, 0}},
        {"the last year", "en-GB", "1/1/2031", {1, 2031}},
        {"the year after", "en-GB", "1/1/2032", {0, 0}},
        {"the least year that can be typed", "en-GB", "1/1/1752", {0, 1970}},
        {"the greatest year that can be typed", "en-GB", "1/1/9999", {0, 2031}},
        {"two digits aren't checked", "en-US", "5/3/26", {1, 26}},
        {"nor are five bytes", "en-GB", "1/1/20320", {1, 20320}},
        {"nor a number beyond an int", "en-GB", "1/1/99999999999999999999", {1, 2147483647}},
        {"four bytes with a blank are checked", "en-GB", "1/1/ 999", {0, 0}},
        {"no field for the year", "en-GB", "1/1", {1, kAsBefore}},
        {"a field without a number", "en-GB", "1/1/year", {0, 0}},
    };
    for (const auto& [why, tag, text, want] : rows) {
        const LocaleInForce locale(tag);
        EXPECT_EQ(Read(text), want) << why;
    }
}

// The era is kept from row to row, and counts again from Heisei at the end.
TEST(YearFromDateString, AnEraYearIsHeldToTheEraThatCounts) {
    const std::tuple<const char*, const char*, Reading> rows[] = {
        {"Heisei counts at first", "平成 43/1/1", {1, 43}},
        {"Heisei has no year 44 here", "平成 44/1/1", {0, 0}},
        {"nor 45, while it counts", "昭和 45/1/1", {0, 0}},
        {"its year 1 changes nothing", "平成 1/1/1", {1, 1}},
        {"an era that isn't known", "令和 5/1/1", {0, 0}},
        {"63 changes over to Showa", "平成 63/1/1", {1, 63}},
        {"where 45 is the first year", "昭和 45/1/1", {1, 45}},
        {"44 is none", "昭和 44/1/1", {0, 0}},
        {"the name in the text doesn't matter", "平成 64/1/1", {1, 64}},
        {"one character of the name does", "昭 50/1/1", {1, 50}},
        {"1 changes back to Heisei", "昭和 1/1/1", {1, 1}},
        {"where 2 is a year", "平成 2/1/1", {1, 2}},
        {"without a blank the year stays as it was", "平成5/1/1", {1, kAsBefore}},
        {"as with a blank behind it", "平成5/1/1 at noon", {1, kAsBefore}},
    };
    for (const unsigned page : {932U, 65001U}) {
        const LocaleInForce locale("ja-JP-u-ca-japanese", page);
        for (const auto& [why, text, want] : rows) {
            EXPECT_EQ(Read(text), want) << why << " on page " << page;
        }
    }
}

}  // namespace
}  // namespace orvo
