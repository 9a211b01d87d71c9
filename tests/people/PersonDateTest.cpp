// Days that come back each year.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <people/PersonDate.h>

namespace orvo {
namespace {

TEST(PersonDate, IsReadInAllItsForms) {
    const std::vector<std::pair<const char*, const char*>> rows{
        {"1985-04-12", "1985-04-12"},
        {"19850412", "1985-04-12"},
        {"1985-04-12T23:20:50Z", "1985-04-12"},
        {"--0412", "--04-12"},
        {"--04-12", "--04-12"},
        {"--0229", "--02-29"},
        {"---12", "---12"},
        {"1985-04", "1985-04"},
        {"1985", "1985"},
        {"9999-12-31", "9999-12-31"},
        {"0000-04-12", ""},
        {"1985-02-29", ""},
        {"1985-13-01", ""},
        {"1985-4-12", ""},
        {"circa 1800", ""},
        {"", ""},
    };
    for (const auto& [text, want] : rows) {
        const std::optional<PersonDate> date = ReadPersonDate(text);
        EXPECT_EQ(date ? FormatPersonDate(*date) : "", want) << text;
    }
}

TEST(PersonDate, ComesBackEachYearALeapDayToo) {
    struct Row {
        const char* date;
        const char* today;
        long days;
        std::optional<int> years;
    };
    const std::vector<Row> rows{
        {"1985-04-12", "2026-04-12", 0, 41}, {"1985-04-12", "2026-04-13", 364, 42},
        {"1985-04-12", "2026-04-11", 1, 41}, {"2000-02-29", "2027-02-28", 0, 27},
        {"2000-02-29", "2028-02-28", 1, 28}, {"2000-02-29", "2027-03-01", 365, 28},
        {"--12-31", "2026-01-01", 364, {}},  {"2027-05-01", "2026-04-30", 1, {}},
        {"2026-05-01", "2026-04-30", 1, 0},
    };
    for (const Row& row : rows) {
        const PersonDate date = *ReadPersonDate(row.date);
        const PersonDate day = *ReadPersonDate(row.today);
        const std::chrono::sys_days today = std::chrono::year_month_day{
            std::chrono::year(day.year), std::chrono::month(static_cast<unsigned>(day.month)),
            std::chrono::day(static_cast<unsigned>(day.day))};
        SCOPED_TRACE(std::string(row.date) + " on " + row.today);
        EXPECT_EQ((NextDay(date, today) - today).count(), row.days);
        EXPECT_EQ(YearsAtNextDay(date, today), row.years);
    }
}

}  // namespace
}  // namespace orvo
