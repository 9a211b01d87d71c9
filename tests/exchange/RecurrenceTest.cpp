// Series of to-dos move to their next dates.
// SPDX-License-Identifier: MIT
#include <chrono>
#include <fstream>
#include <sstream>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <exchange/calendar/OldRule.h>
#include <exchange/calendar/Recurrence.h>
#include <exchange/calendar/SeriesEdits.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

std::string ToDo(std::string_view lines) {
    return fmt::format("BEGIN:VTODO\nUID:1\n{}\nEND:VTODO\n", lines);
}

std::string Moved(const std::string& text) {
    const std::optional<ToDoText> moved = MovedToNext({{}, text});
    return moved ? moved->text : "over";
}

TEST(Recurrence, ASeriesMovesToItsNextDate) {
    struct {
        const char *why, *lines, *want;
    } const rows[] = {
        {"start and due by the same rule",
         "DTSTART:20261126T090000\nDUE:20261127T180000\nRRULE:FREQ=WEEKLY",
         "DTSTART:20261203T090000\nDUE:20261204T180000\nRRULE:FREQ=WEEKLY"},
        {"counted from a due date alone; days stay days",
         "DUE;VALUE=DATE:20260131\nRRULE:FREQ=MONTHLY",
         "DUE;VALUE=DATE:20260331\nRRULE:FREQ=MONTHLY"},
        {"the clock on the wall over the change to summer time",
         "DTSTART;TZID=Europe/Berlin:20260328T023000\nDUE:20260328T023000Z\nRRULE:FREQ=DAILY",
         "DTSTART;TZID=Europe/Berlin:20260329T023000\nDUE:20260329T013000Z\nRRULE:FREQ=DAILY"},
        {"COUNT falls, also for a date left out",
         "DUE:20261126T090000Z\nRRULE:COUNT=5;FREQ=DAILY\nEXDATE:20261127T090000Z",
         "DUE:20261128T090000Z\nRRULE:COUNT=3;FREQ=DAILY"},
        {"the last of COUNT", "DUE:20261126\nRRULE:FREQ=DAILY;COUNT=1", "over"},
        {"UNTIL in UTC for a zone",
         "DTSTART;TZID=Asia/Tokyo:20261126T080000\nRRULE:FREQ=DAILY;UNTIL=20261126T230000Z",
         "DTSTART;TZID=Asia/Tokyo:20261127T080000\nRRULE:FREQ=DAILY;UNTIL=20261126T230000Z"},
        {"beyond UNTIL", "DUE:20261126\nRRULE:FREQ=DAILY;UNTIL=20261126", "over"},
        {"an extra date, after which the rule goes on as it did",
         "DUE:20261123\nRRULE:FREQ=WEEKLY;COUNT=3\nRDATE;VALUE=DATE:20261101,20261125,20261209",
         "DUE:20261125\nRRULE:FREQ=WEEKLY;COUNT=2;BYDAY=MO\nRDATE;VALUE=DATE:20261125,20261209"},
        {"from the extra date",
         "DUE:20261125\nRRULE:FREQ=WEEKLY;COUNT=2;BYDAY=MO\nRDATE;VALUE=DATE:20261125,20261209",
         "DUE:20261130\nRRULE:FREQ=WEEKLY;COUNT=2;BYDAY=MO\nRDATE;VALUE=DATE:20261209"},
        {"open again, alarms and all",
         "DUE:20261126T090000Z\nRRULE:FREQ=DAILY\nSTATUS:IN-PROCESS\nPERCENT-COMPLETE:50\n"
         "BEGIN:VALARM\nTRIGGER:-PT5M\nACKNOWLEDGED:20261126T085500Z\nEND:VALARM\n"
         "BEGIN:VALARM\nRELATED-TO;RELTYPE=SNOOZE:1\nTRIGGER:-PT4M\nEND:VALARM\n"
         "BEGIN:VALARM\nTRIGGER;VALUE=DATE-TIME:20261125T120000Z\nEND:VALARM",
         "DUE:20261127T090000Z\nRRULE:FREQ=DAILY\nSTATUS:NEEDS-ACTION\n"
         "BEGIN:VALARM\nTRIGGER:-PT5M\nEND:VALARM\n"
         "BEGIN:VALARM\nTRIGGER;VALUE=DATE-TIME:20261126T120000Z\nEND:VALARM"},
        {"an unknown zone", "DUE;TZID=Mars:20261126T090000\nRRULE:FREQ=DAILY",
         "DUE;TZID=Mars:20261127T090000\nRRULE:FREQ=DAILY"},
        {"due before the start", "DTSTART:20261126\nDUE:20261120\nRRULE:FREQ=DAILY",
         "DTSTART:20261127\nDUE:20261121\nRRULE:FREQ=DAILY"},
        {"counted from the due date, as only that is a Friday",
         "DTSTART:20261125\nDUE:20261127\nRRULE:FREQ=WEEKLY;BYDAY=FR",
         "DTSTART:20261202\nDUE:20261204\nRRULE:FREQ=WEEKLY;BYDAY=FR"},
        {"an hour that stands twice", "DUE:20261126T090000\nRRULE:FREQ=DAILY;BYHOUR=9,9",
         "DUE:20261127T090000\nRRULE:FREQ=DAILY;BYHOUR=9,9"},
        {"no date to count from", "RRULE:FREQ=DAILY", "over"},
        {"no rule", "DUE:20261126", "over"},
    };
    SetSystemTimeZone("Europe/Berlin");
    for (const auto& row : rows) {
        const std::string want = row.want == std::string("over") ? "over" : ToDo(row.want);
        EXPECT_EQ(Moved(ToDo(row.lines)), want) << row.why;
    }
    SetSystemTimeZone("");
}

std::string WithRule(const std::string& text, const char* rule) {
    ToDoText toDo{{}, text};
    return SetRule(toDo, rule) ? toDo.text : "no date";
}

TEST(Recurrence, ARuleReplacesAllThatWasOfTheKind) {
    const std::string old = "RRULE:FREQ=DAILY\nRDATE:20261201\nEXDATE:20261202\n";
    struct {
        const char *why, *lines, *rule, *want;
    } const rows[] = {
        {"a day in a zone ends with it", "DUE;TZID=Asia/Tokyo:20261126T090000",
         "FREQ=DAILY;UNTIL=20261130",
         "DUE;TZID=Asia/Tokyo:20261126T090000\nRRULE:FREQ=DAILY;UNTIL=20261130T145959Z"},
        {"and by any clock", "DUE:20261126T090000", "FREQ=DAILY;UNTIL=20261130",
         "DUE:20261126T090000\nRRULE:FREQ=DAILY;UNTIL=20261130T235959"},
        {"of days it is a day", "DUE:20261126", "FREQ=DAILY;UNTIL=20261130;COUNT=1",
         "DUE:20261126\nRRULE:FREQ=DAILY;UNTIL=20261130;COUNT=1"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(WithRule(ToDo(row.lines), row.rule), ToDo(row.want)) << row.why;
    }
    EXPECT_EQ(WithRule(ToDo(old + "DUE:20261126"), "FREQ=YEARLY"),
              ToDo("RRULE:FREQ=YEARLY\nDUE:20261126"));
    EXPECT_EQ(WithRule(ToDo(old + "X-A:1") + ToDo("RECURRENCE-ID:20261127"), ""), ToDo("X-A:1"));
    EXPECT_EQ(WithRule(ToDo("X-A:1"), "FREQ=DAILY"), "no date");
}

TEST(Recurrence, AStartIsOfTheFormOfTheDueDate) {
    const CivilTime day{2026, 11, 25};
    struct {
        const char* lines;
        std::optional<CivilTime> day;
        const char* want;
    } const rows[] = {
        {"X-A:1", day, "X-A:1\nDTSTART;VALUE=DATE:20261125"},
        {"DUE;TZID=Asia/Tokyo:20261126T090000", day,
         "DUE;TZID=Asia/Tokyo:20261126T090000\nDTSTART;TZID=Asia/Tokyo:20261125T000000"},
        {"DTSTART:20260101T083000Z\nX-A:1", day, "DTSTART:20261125T083000Z\nX-A:1"},
        {"DTSTART:20260101\nX-A:1", std::nullopt, "X-A:1"},
        {"DTSTART:20261125T100000\nDURATION:PT2H", std::nullopt, "DUE:20261125T120000"},
        {"X-A:1", std::nullopt, "X-A:1"},
    };
    for (const auto& row : rows) {
        ToDoText toDo{{}, ToDo(row.lines)};
        SetStartDay(toDo, row.day);
        EXPECT_EQ(toDo.text, ToDo(row.want)) << row.lines;
    }
}

TEST(Recurrence, AnInstanceOfItsOwnIsPassedOverOrCopied) {
    const std::string series = ToDo("DUE:20261126\nRRULE:FREQ=DAILY\nX-A:1");
    const std::string done = ToDo("RECURRENCE-ID:20261127\nDUE:20261127\nSTATUS:COMPLETED");
    const std::string own =
        ToDo("RECURRENCE-ID:20261126\nSUMMARY:own\nBEGIN:VALARM\nTRIGGER:PT0S\nEND:VALARM");

    const ToDoText text{{}, series + done + own};

    EXPECT_EQ(MovedToNext(text)->text, ToDo("DUE:20261128\nRRULE:FREQ=DAILY\nX-A:1") + done + own);
    EXPECT_EQ(CompletedCopy(text).text, "BEGIN:VTODO\nSUMMARY:own\nEND:VTODO\n");
    EXPECT_EQ(CompletedCopy({{}, series}).text, "BEGIN:VTODO\nDUE:20261126\nX-A:1\nEND:VTODO\n");
    EXPECT_EQ(OverridesOf(text).front().text, own);
    EXPECT_EQ(NextDates(text, 2).size(), 2u);
}

std::vector<std::string> Split(const std::string& text, char divider) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, divider);) parts.push_back(part);
    return parts;
}

// dates.txt is made by the script beside it.
TEST(Recurrence, TheDatesAreThoseOfAnotherProgram) {
    std::ifstream file(ORVO_RECURRENCE "/dates.txt");
    std::size_t lines = 0;
    for (std::string line; std::getline(file, line); ++lines) {
        std::vector<std::string> row = Split(line, '\t');
        row.resize(6);
        const std::string& parameters = row[0];
        ToDoText text{{}, "BEGIN:VTODO\nDTSTART" + parameters + ":" + row[1] + "\n"};
        text.text += "RRULE:" + row[2] + "\n";
        if (!row[3].empty()) text.text += "EXDATE" + parameters + ":" + row[3] + "\n";
        text.text += "END:VTODO\n";
        const std::vector<std::string> dates = Split(row[4], ',');

        std::string moments;
        for (const CalendarDate& date : NextDates(text, dates.size())) {
            moments += fmt::format("{}{}", moments.empty() ? "" : ",", date.moment);
        }
        if (!row[5].empty()) EXPECT_EQ(moments, row[5]) << line;
        for (const std::string& date : dates) {
            const std::optional<ToDoText> moved = MovedToNext(text);
            ASSERT_TRUE(moved) << line;
            text = *moved;
            EXPECT_EQ(Split(text.text, '\n')[1], "DTSTART" + parameters + ":" + date) << line;
        }
        const bool isOver = dates.size() < 4;
        if (isOver) EXPECT_FALSE(MovedToNext(text)) << line;
    }
    EXPECT_EQ(lines, 400u);
}

TEST(Recurrence, RulesOfVCalendarAreReadAndWritten) {
    struct {
        const char *old, *rule, *back;
    } const rows[] = {
        {"W2 MO FR #10", "FREQ=WEEKLY;INTERVAL=2;COUNT=20;BYDAY=MO,FR", "W2 MO FR #10"},
        {"MP1 1+ MO 2- FR 19991224T000000Z", "FREQ=MONTHLY;UNTIL=19991224T000000Z;BYDAY=1MO,-2FR",
         "MP1 1+ MO 2- FR 19991224T000000Z"},
        {"MD1 15 LD #0", "FREQ=MONTHLY;BYMONTHDAY=15,-1", "MD1 15 1- #0"},
        {"D3", "FREQ=DAILY;INTERVAL=3;COUNT=2", "D3 #2"},
        {"YM1 12 #3", "FREQ=YEARLY;COUNT=3;BYMONTH=12", "YM1 12 #3"},
        {"M5 #0", "FREQ=MINUTELY;INTERVAL=5", "M5 #0"},
        {"YM1 6 W1 TU #0", "", ""},
        {"D1 0900 #0", "", ""},
        {"D99999999999", "", ""},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(RuleOfOldRule(row.old).value_or(""), row.rule) << row.old;
        EXPECT_EQ(OldRuleOfRule(row.rule).value_or(""), row.back) << row.rule;
    }
    EXPECT_FALSE(OldRuleOfRule("FREQ=WEEKLY;COUNT=3;BYDAY=MO,FR"));
    EXPECT_FALSE(OldRuleOfRule("FREQ=MONTHLY;BYDAY=MO;BYSETPOS=1"));
}

TEST(Recurrence, NoRuleTakesLong) {
    std::string hours = "0", minutes = "0";
    for (int i = 1; i < 24; ++i) hours += fmt::format(",{}", i);
    for (int i = 1; i < 60; ++i) minutes += fmt::format(",{}", i);
    std::string daysLeftOut = "EXDATE:", utcLeftOut = "EXDATE:";
    for (int i = 0; i < 10'000; ++i) {
        const CivilTime day = CivilOfDays(DaysOfCivil(2026, 11, 26) + i % 4'000);
        daysLeftOut += fmt::format("{:04}{:02}{:02},", day.year, day.month, day.day);
        utcLeftOut += fmt::format("{:04}{:02}{:02}T080000Z,", day.year, day.month, day.day);
    }
    const std::string rules[] = {
        "FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30",
        "FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30",
        "FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30",
        "FREQ=MINUTELY;INTERVAL=32767;BYHOUR=3;BYDAY=MO;BYMONTHDAY=-31",
        "FREQ=MONTHLY;BYDAY=MO;BYSETPOS=7",
        "FREQ=WEEKLY;BYDAY=MO;BYSETPOS=-366",
        "FREQ=YEARLY;INTERVAL=32767",
        "FREQ=DAILY;INTERVAL=0",
        "FREQ=DAILY;INTERVAL=99999999999",
        "FREQ=DAILY;BYHOUR=" + hours + ";BYMINUTE=" + minutes + ";BYSECOND=" + minutes +
            ";BYSETPOS=-100000;BYMONTH=2;BYMONTHDAY=29",
        "FREQ=YEARLY;BYDAY=MO,TU,WE,TH,FR,SA,SU;BYHOUR=" + hours + ";BYMINUTE=" + minutes +
            ";BYSECOND=" + minutes,
        "FREQ=YEARLY;BYWEEKNO=53;BYMONTH=6",
        "RSCALE=CHINESE;FREQ=YEARLY;BYMONTH=5L;BYMONTHDAY=30",
        "FREQ=DAILY\n" + daysLeftOut,
        "FREQ=DAILY\n" + utcLeftOut,
        "FREQ=DAILY;COUNT=1000000000000000000000",
        "FREQ=WEEKLY;FREQ=;;=;BYDAY",
    };
    for (const std::string& rule : rules) {
        const std::string text = ToDo("DTSTART;TZID=Europe/Berlin:20261126T090000\nRRULE:" + rule);
        const auto start = std::chrono::steady_clock::now();

        Moved(text);

        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        EXPECT_LT(took.count(), 500) << rule.substr(0, 100);
    }
}

}  // namespace
}  // namespace orvo
