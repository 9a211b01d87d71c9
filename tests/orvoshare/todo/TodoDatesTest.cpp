// When a to-do is due, and how a date is shown, typed and chosen.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <contracts/Dates.h>
#include <orvoshare/todo/TodoDates.h>
#include <platform/text/CodePage.h>
#include <platform/time/CTime.h>
#include <platform/time/ZonedTest.h>
#include <platform/window/WindowFixture.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

long MomentOf(const char* civil) {
    return MomentOfCivil(ParseIso(civil).value());
}
std::string IsoOf(long moment) {
    return FormatIso(CivilOfMoment(moment).value());
}

CString TextOf(long date, int withYear) {
    CString text("old");
    DateText(date, text, withYear);
    return text;
}

class TodoDates : public ZonedTest {
protected:
    ~TodoDates() override { CTime::SetClock(-1); }

    static void SetNow(const char* zone, const char* now) {
        SetSystemTimeZone(zone);
        CTime::SetClock(MomentOf(now));
    }
};

// The second before `firstToday` is overdue, the last one of its day is due; the one behind isn't.
constexpr const char* kDueRows[][4] = {
    {"no clock changes", "Asia/Tokyo", "2026-05-03T00:00:00", "2026-05-03T00:00:00"},
    {"the last second of a day", "Asia/Tokyo", "2026-05-03T23:59:59", "2026-05-03T00:00:00"},
    {"a day of 23 hours", "Europe/Berlin", "2026-03-29T12:00:00", "2026-03-29T00:00:00"},
    {"late in a day of 25 hours", "Europe/Berlin", "2026-10-25T23:30:00", "2026-10-25T00:00:00"},
    {"just after 23 hours", "America/New_York", "2026-03-09T00:15:00", "2026-03-09T00:00:00"},
    {"half an hour more", "Australia/Lord_Howe", "2026-04-05T23:45:00", "2026-04-05T00:00:00"},
    {"a day that begins at one", "Africa/Cairo", "2026-04-24T12:00:00", "2026-04-24T01:00:00"},
    {"after a day left out", "Pacific/Apia", "2011-12-31T12:00:00", "2011-12-31T00:00:00"},
};

TEST_F(TodoDates, TheCalendarDayDecidesWhatIsDueAndWhatIsOverdue) {
    for (const auto& [why, zone, now, firstToday] : kDueRows) {
        SetNow(zone, now);
        const long first = MomentOf(firstToday);
        const long last = MomentOf((std::string(firstToday, 11) + "23:59:59").c_str());
        EXPECT_EQ(IsDueYesterdayOrEarlier(first - 1), 1) << why;
        EXPECT_EQ(IsDueYesterdayOrEarlier(first), 0) << why;
        EXPECT_EQ(IsDueToday(last), 1) << why;
        EXPECT_EQ(IsDueToday(last + 1), 0) << why;
    }
}

TEST_F(TodoDates, NoDateIsNeitherDueNorOverdueAndHasNoText) {
    SetNow("Asia/Tokyo", "2026-05-03T12:00:00");
    EXPECT_EQ(IsDueToday(kMaxDate), 0);
    EXPECT_EQ(IsDueYesterdayOrEarlier(kMaxDate), 0);
    EXPECT_EQ(IsDueToday(-1), 1);
    EXPECT_EQ(IsDueYesterdayOrEarlier(-1), 1);

    EXPECT_EQ(TextOf(kMaxDate, 1), "");
    for (const int choice : {3, 5, -1}) EXPECT_EQ(ChosenDate(choice, 7), kMaxDate) << choice;
}

// The full form and the one without a year, then 24 December as it is typed with a year and
// without.
constexpr std::tuple<LocaleCase, const char*, const char*, const char*, const char*> kTextRows[] = {
    {{"en-US", 65001}, "12/24/27", "12/24", "12/24/2027", "12/24"},
    {{"de-DE", 65001}, "24.12.27", "24.12", "24.12.27", "24.12"},
    {{"sv-SE", 65001}, "2027-12-24", "12-24", "2027-12-24", "12-24"},
    {{"ko-KR", 65001}, "27. 12. 24.", "12. 24", "27. 12. 24.", "12. 24."},
    {{"ja-JP", 932}, "2027/12/24", "12/24", "27\x94\x4E\x31\x32\x8C\x8E\x32\x34\x93\xFA", "12/24"},
};

TEST_F(TodoDates, ADateIsShownAndReadByTheLocale) {
    SetNow("Europe/Berlin", "2026-05-03T12:00:00");
    for (const auto& [page, full, withoutYear, typed, typedNoYear] : kTextRows) {
        const LocaleInForce locale(page.tag, page.codePage);
        EXPECT_EQ(TextOf(MomentOf("2027-12-24T17:30:00"), 1), full) << page.tag;
        EXPECT_EQ(TextOf(MomentOf("2027-12-24T17:30:00"), 0), withoutYear) << page.tag;
        EXPECT_EQ(IsoOf(DateOfText(typed)), "2027-12-24T23:59:59") << typed;
        EXPECT_EQ(IsoOf(DateOfText(typedNoYear)), "2026-12-24T23:59:59") << typedNoYear;
    }
}

TEST_F(TodoDates, TypedYearsFallIntoTheYearsOfRecordsAndWhatIsNoDateIsReadAsNone) {
    constexpr const char* kRows[][2] = {{"0", "2000"},    {"37", "2037"},   {"38", "1970"},
                                        {"69", "1970"},   {"71", "1971"},   {"99", "1999"},
                                        {"1900", "1970"}, {"2038", "2038"}, {"2100", "2038"}};
    const LocaleInForce locale("en-US");
    SetNow("America/New_York", "2026-05-03T12:00:00");
    for (const auto& [typed, year] : kRows) {
        const CString date = CString("1/2/") + typed;
        EXPECT_EQ(IsoOf(DateOfText(date)), std::string(year) + "-01-02T23:59:59") << typed;
    }
    for (const char* text : {"", "soon", "13/32/26", "5", "//", " "}) {
        EXPECT_EQ(DateOfText(text), -1) << text;
    }
}

TEST_F(TodoDates, AChosenDateLiesAtTheStartOfItsCalendarDay) {
    using enum DateChoice;
    constexpr std::tuple<const char*, const char*, const char*, DateChoice, const char*> kRows[] = {
        {"today", "Asia/Tokyo", "2026-05-03T12:00:00", Today, "2026-05-03"},
        {"over a year's end", "Asia/Tokyo", "2026-12-28T23:59:59", OneWeekLater, "2027-01-04"},
        {"over 25 hours", "Europe/Berlin", "2026-10-25T00:30:00", Tomorrow, "2026-10-26"},
        {"over 23 hours", "America/New_York", "2026-03-03T23:30:00", OneWeekLater, "2026-03-10"},
        {"from a day from one on", "Africa/Cairo", "2026-04-24T12:00:00", Tomorrow, "2026-04-25"},
        {"over a day left out", "Pacific/Apia", "2011-12-29T12:00:00", Tomorrow, "2011-12-31"},
    };
    for (const auto& [why, zone, now, choice, day] : kRows) {
        SetNow(zone, now);
        EXPECT_EQ(IsoOf(ChosenDate(static_cast<int>(choice), kMaxDate)),
                  std::string(day) + "T00:00:00")
            << why;
    }
}

// Writes down where the picker began.
struct PickingSystem : SystemInForce {
    CTime begun;

    bool PickDay(CWnd* window, CTime& day) override {
        begun = day;
        return SystemInForce::PickDay(window, day);
    }
};

TEST_F(TodoDates, ThePickerBeginsAtTheDateOrTodayAndMayBeCancelled) {
    SetNow("Asia/Tokyo", "2026-05-03T12:00:00");
    PickingSystem system;
    const int choice = static_cast<int>(DateChoice::Choose);

    system.AnswerDay(CTime(1'900'000'000));
    EXPECT_EQ(ChosenDate(choice, 1'800'000'000), 1'900'000'000);
    EXPECT_EQ(system.begun.GetTime(), 1'800'000'000);

    system.AnswerDay(std::nullopt);
    EXPECT_EQ(ChosenDate(choice, kMaxDate), -1);
    EXPECT_EQ(IsoOf(system.begun.GetTime()), "2026-05-03T12:00:00");
}

}  // namespace
}  // namespace orvo
