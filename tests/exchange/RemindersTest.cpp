// When a to-do reminds, and what an answer writes into it.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <exchange/calendar/ReminderText.h>
#include <exchange/calendar/Reminders.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

class Reminders : public testing::Test {
protected:
    Reminders() { SetSystemTimeZone("Europe/Berlin"); }
    ~Reminders() override { SetSystemTimeZone(""); }

    static std::int64_t At(std::string_view iso) { return MomentOfCivil(*ParseIso(iso)); }

    static ToDoText ToDo(const std::string& lines) {
        return {{}, "BEGIN:VTODO\nSUMMARY:a\n" + lines + "END:VTODO\n"};
    }
    static std::string Alarm(const std::string& lines) {
        return "BEGIN:VALARM\nACTION:DISPLAY\n" + lines + "END:VALARM\n";
    }

    // When a to-do comes that wasn't told before.
    static std::string First(const std::string& lines) {
        std::string times;
        for (const ToDoReminder& reminder : ReadReminders(ToDo(lines))) {
            const auto next = reminder.Next(std::numeric_limits<std::int64_t>::min());
            times += next ? FormatIso(*CivilOfMoment(*next)) + " " : "never ";
        }
        return times;
    }
};

TEST_F(Reminders, ComeAtTheirTriggers) {
    const std::string start = "DTSTART:20261224T080000\n";
    const std::string due = "DUE:20261224T100000\n";
    const struct {
        const char* why;
        std::string lines;
        const char* want;
    } rows[] = {
        {"before the due date", due + Alarm("TRIGGER;RELATED=END:-PT15M\n"),
         "2026-12-24T09:45:00 "},
        {"before the start", start + due + Alarm("TRIGGER:-P1DT1H\n"), "2026-12-23T07:00:00 "},
        {"what has no start has a due date", due + Alarm("TRIGGER:PT5M\n"), "2026-12-24T10:05:00 "},
        {"an alarm may stand first", Alarm("TRIGGER:PT0S\n") + due, "2026-12-24T10:00:00 "},
        {"the end of a duration", start + "DURATION:PT3H\n" + Alarm("TRIGGER;RELATED=END:PT0S\n"),
         "2026-12-24T11:00:00 "},
        {"a day begins at midnight", "DUE;VALUE=DATE:20261224\n" + Alarm("TRIGGER:-PT1H\n"),
         "2026-12-23T23:00:00 "},
        {"a day before a change of the clocks", "DUE:20261025T100000\n" + Alarm("TRIGGER:-P1D\n"),
         "2026-10-24T10:00:00 "},
        {"a moment", Alarm("TRIGGER;VALUE=DATE-TIME:20261224T090000Z\n"), "2026-12-24T10:00:00 "},
        {"no date", Alarm("TRIGGER:-PT15M\n"), "never "},
        {"acknowledged", due + Alarm("TRIGGER:-PT15M\nACKNOWLEDGED:20261224T084500Z\n"), "never "},
        {"acknowledged for an earlier date",
         due + Alarm("TRIGGER:-PT15M\nACKNOWLEDGED:20261224T084459Z\n"), "2026-12-24T09:45:00 "},
        {"comes again",
         due + Alarm("TRIGGER:PT0S\nREPEAT:2\nDURATION:PT5M\nACKNOWLEDGED:20261224T090500Z\n"),
         "2026-12-24T10:10:00 "},
        {"but not for ever",
         due + Alarm("TRIGGER:PT0S\nREPEAT:2\nDURATION:PT5M\nACKNOWLEDGED:20261224T091000Z\n"),
         "never "},
        {"no trigger", due + Alarm(""), ""},
        {"bad triggers",
         due + Alarm("TRIGGER:-P\n") + Alarm("TRIGGER:-PT99999999999999999999M\n") +
             Alarm("TRIGGER;VALUE=DATE-TIME:20261399T000000Z\n"),
         ""},
        {"an alarm of another kind", due + "BEGIN:VALARM\nACTION:EMAIL\nTRIGGER:PT0S\nEND:VALARM\n",
         ""},
        {"an alarm without an end", due + "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:PT0S\n", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(First(row.lines), row.want) << row.why;
}

TEST_F(Reminders, AreEditedAndTheRestStays) {
    const std::string kept = "X-A:1\n" + Alarm("TRIGGER:oops\n") + Alarm("TRIGGER:-PT1H\nX-B:2\n");
    ToDoText toDo = ToDo("DUE:20261224T100000\n" + kept);
    const std::string before = toDo.text;
    EXPECT_FALSE(SetReminders(toDo, {{ReminderTime::From::Start, 3600}}));
    EXPECT_TRUE(AddReminder(toDo, *ReadReminder("1 day before")));
    EXPECT_TRUE(AddReminder(toDo, *ReadReminder("2026-12-20 09:00")));
    EXPECT_THAT(toDo.text, testing::HasSubstr(kept));
    EXPECT_THAT(toDo.text, testing::HasSubstr("DESCRIPTION:a\nTRIGGER;RELATED=END:-P1D\nEND"));
    EXPECT_THAT(toDo.text, testing::HasSubstr("TRIGGER;VALUE=DATE-TIME:20261220T080000Z\n"));
    EXPECT_TRUE(RemoveReminder(toDo, *ReadReminder("1 day before")));
    EXPECT_TRUE(RemoveReminder(toDo, *ReadReminder("2026-12-20T09:00:00")));
    EXPECT_EQ(toDo.text, before);
}

TEST_F(Reminders, AreAcknowledgedAndPutOff) {
    const std::string lines =
        "DUE:20261224T100000\n" + Alarm("TRIGGER:-PT15M\n") + Alarm("TRIGGER:-PT5M\n");
    ToDoText toDo = ToDo(lines);
    EXPECT_FALSE(AcknowledgeReminders(toDo, At("2026-12-24T09:44:59"), 0));
    const std::int64_t told = At("2026-12-24T09:45:00");
    EXPECT_TRUE(SnoozeReminders(toDo, told, told, told + 600));
    std::vector<ToDoReminder> reminders = ReadReminders(toDo);
    ASSERT_EQ(reminders.size(), 3U);
    EXPECT_EQ(reminders[0].acknowledged, told);
    EXPECT_EQ(reminders[1].Next(told), At("2026-12-24T09:55:00"));
    EXPECT_EQ(reminders[2].Next(told), told + 600);
    EXPECT_TRUE(reminders[2].isSnooze);

    // The one that was put off goes, and the second one counts as seen with it.
    EXPECT_TRUE(SnoozeReminders(toDo, told + 600, told + 610, told + 1200));
    EXPECT_TRUE(AcknowledgeReminders(toDo, told + 1200, told + 1230));
    reminders = ReadReminders(toDo);
    ASSERT_EQ(reminders.size(), 2U);
    EXPECT_EQ(reminders[0].acknowledged, told + 1230);
    EXPECT_EQ(reminders[1].acknowledged, told + 610);
    EXPECT_FALSE(AcknowledgeReminders(toDo, told + 9999, told + 9999));
    // All that was written can be read where there was no reminder, too.
    ToDoText plain = ToDo("");
    EXPECT_TRUE(SnoozeReminders(plain, told, told, told + 600));
    EXPECT_TRUE(AcknowledgeReminders(plain, told + 600, told + 600));
    EXPECT_EQ(plain.text, ToDo("").text);
}

TEST_F(Reminders, AreWordsOfACommandLine) {
    const struct {
        const char *text, *want;
    } rows[] = {{"15 min before", "15 minutes before due"},
                {"15min", "15 minutes before due"},
                {"60 minutes before start", "1 hour before start"},
                {"1 w", "1 week before due"},
                {"2 Days after DUE", "2 days after due"},
                {"at start", "at start"},
                {"0 minutes before", "at due"},
                {"2026-12-24 10:00", "2026-12-24 10:00"},
                {"2026-12-24T10:00:30", "2026-12-24 10:00:30"},
                {"2026-12-24", ""},
                {"2026-13-24 10:00", ""},
                {"15 before", ""},
                {"-5 minutes", ""},
                {"99999999999 weeks", ""},
                {"1 day before lunch", ""},
                {"", ""}};
    for (const auto& row : rows) {
        const auto time = ReadReminder(row.text);
        EXPECT_EQ(time ? FormatReminder(*time) : "", row.want) << row.text;
    }
}

}  // namespace
}  // namespace orvo
