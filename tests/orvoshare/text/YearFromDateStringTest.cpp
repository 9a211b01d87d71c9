// Tests of the year in a typed date, under several calendars.
// SPDX-License-Identifier: MIT
#include <string_view>

#include <gtest/gtest.h>

#include <orvoshare/text/DateConversion.h>
#include <platform/text/SystemText.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

constexpr int kAsBefore = -77;

struct Reading {
    int result, year;
    bool operator==(const Reading&) const = default;
};

void PrintTo(const Reading& reading, std::ostream* out) {
    *out << reading.result << " with year " << reading.year;
}

Reading Read(std::string_view utf8) {
    int year = kAsBefore;
    const int result = GetYearFromDateString(SystemText(utf8), year);
    return {result, year};
}

TEST(YearFromDateString, AFullYearIsHeldToTheRange) {
    struct {
        const char *why, *locale, *text;
        Reading want;
    } const rows[] = {
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
    for (const auto& row : rows) {
        const LocaleInForce locale(row.locale);
        EXPECT_EQ(Read(row.text), row.want) << row.why;
    }
}

// The era is kept from row to row, and counts again from Heisei at the end.
TEST(YearFromDateString, AnEraYearIsHeldToTheEraThatCounts) {
    struct {
        const char *why, *text;
        Reading want;
    } const rows[] = {
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
        for (const auto& row : rows) {
            EXPECT_EQ(Read(row.text), row.want) << row.why << " on page " << page;
        }
    }
}

}  // namespace
}  // namespace orvo
