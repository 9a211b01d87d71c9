// What the user is told of to-dos, and how often.
// SPDX-License-Identifier: MIT
#include <QLocale>

#include <gmock/gmock.h>

#include <desktop/reminder/Reminder.h>
#include <exchange/calendar/ToDoText.h>
#include <exchange/files/ImportFile.h>
#include <platform/settings/SettingsFixture.h>

#include "ToDoStore.h"

namespace orvo::desktop {
namespace {

using testing::HasSubstr;

// It goes on only where the test says so.
class TestClock : public WakeClock {
public:
    std::int64_t Now() const override { return CTime::GetCurrentTime().GetTime(); }
    void WakeAt(std::optional<std::int64_t> moment) override { m_wake = moment; }

    // When the next call is; empty for never.
    std::string Wake() const { return m_wake ? FormatIso(*CivilOfMoment(*m_wake)) : ""; }
    // Sleeps until then, or until a moment before it.
    void SleepUntil(const char* iso) {
        const std::int64_t end = MomentOfCivil(*ParseIso(iso));
        while (m_wake && *m_wake <= end) {
            ToDoStore::SetNow(Wake().c_str());
            m_wake.reset();
            ++wakes;
            m_listener();
        }
        ToDoStore::SetNow(iso);
    }
    // Somebody sets the clock, or the system was suspended.
    void Set(const char* iso) {
        ToDoStore::SetNow(iso);
        m_listener();
    }

    int wakes = 0;

private:
    std::optional<std::int64_t> m_wake;
};

class ReminderTest : public SettingsFixture {
protected:
    ReminderTest() { QLocale::setDefault(QLocale::c()); }

    // What the next look tells at once, title and body; empty for nothing.
    std::string Look() {
        told.clear();
        reminder->Start();
        reminder->Look();
        return told;
    }

    // A program that was just started.
    std::unique_ptr<Reminder> Make() {
        return std::make_unique<Reminder>(store.toDos, store.options, "/orvo.db", clock,
                                          [this](const Note& note) {
                                              told += (note.title + "\n" + note.body).toStdString();
                                              last = note;
                                          });
    }

    // The calendar's to-do, from now on.
    std::int64_t Import(const std::string& lines) {
        CAddressTable addresses(store.engine);
        ImportBytes("BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTODO\nSUMMARY:Call\n" + lines +
                        "END:VTODO\nEND:VCALENDAR\n",
                    addresses, store.toDos);
        CToDoRecord record(store.toDos);
        CToDoIterator(store.toDos).FindFirst(record);
        reminder->Forget(record.GetId());
        return record.GetId();
    }

    ToDoStore store;
    TestClock clock;
    std::string told;
    Note last;
    std::unique_ptr<Reminder> reminder = Make();
};

TEST_F(ReminderTest, TellsOnceTogetherWhatHasPassed) {
    store.Add("Write", "2026-11-24T08:00:00");
    store.Add("Paint\nthe\tdoor", "2026-11-25");
    Look();
    EXPECT_THAT(told, HasSubstr("Reminder of 2 to-dos\nWrite (due 24 Nov 2026 08:00:00)\n"
                                "Paint the door (due 25 Nov 2026)"));
    EXPECT_EQ(Look(), "");
}

TEST_F(ReminderTest, TellsLaterWhatComesLater) {
    store.Add("Write", "2026-11-25T10:06:00");
    EXPECT_EQ(Look(), "");
    store.SetNow("2026-11-25T10:01:00");
    EXPECT_THAT(Look(), HasSubstr("Reminder of 1 to-do\nWrite"));
}

TEST_F(ReminderTest, TellsAgainOfAToDoThatIsPutOff) {
    const std::int64_t id = store.Add("Write", "2026-11-25T10:00:00");
    EXPECT_NE(Look(), "");
    store.Change(id, [](CToDoRecord& record) {
        record.SetDueDate(MomentOfCivil(*ParseIso("2026-11-25T10:02:00")));
    });
    EXPECT_NE(Look(), "");
}

TEST_F(ReminderTest, AsLongAsTheOptionIsOffNothingCountsAsTold) {
    store.Add("Write", "2026-11-25T10:00:00");
    store.options.SetAlarmSet(0);
    EXPECT_EQ(Look(), "");
    store.options.SetAlarmSet(1);
    EXPECT_NE(Look(), "");
}

TEST_F(ReminderTest, AnyNumberIsToldAndToldOnce) {
    for (int i = 0; i < 450; ++i) store.Add("Write", "2026-11-25T10:00:00");
    EXPECT_THAT(Look(), HasSubstr("Reminder of 450 to-dos"));
    reminder.reset();
    reminder = Make();
    store.Add("Paint", "2026-11-25T10:05:01");
    EXPECT_EQ(Look(), "");
    store.SetNow("2026-11-25T10:00:01");
    EXPECT_THAT(Look(), HasSubstr("Reminder of 1 to-do\nPaint"));
}

TEST_F(ReminderTest, OfManyTheFirstTenAreNamed) {
    for (int i = 0; i < 13; ++i) store.Add("Write", "2026-11-25T10:00:00");
    EXPECT_THAT(Look(), HasSubstr("and 3 other to-dos"));
    EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 11);
}

TEST_F(ReminderTest, CutsALongTextBetweenCharacters) {
    const std::string wide = "\xF0\x9F\x90\x88";  // one that takes two places
    std::string text = "x";
    for (int i = 0; i < 200; ++i) text += wide;
    store.Add(text.c_str(), "2026-11-25T10:00:00");
    EXPECT_THAT(Look(), HasSubstr(wide + "\u2026 (due"));
}

TEST_F(ReminderTest, NamesNoPrivateToDoThatIsHidden) {
    store.Add("Xanadu", "2026-11-25T10:00:00", true);
    store.options.SetShowingPrivate(0);
    EXPECT_THAT(Look(), HasSubstr("\nPrivate to-do (due"));
}

TEST_F(ReminderTest, WakesOnlyForReminders) {
    store.options.SetAlarmSet(0);
    Look();
    EXPECT_EQ(clock.Wake(), "");
    Import(
        "DUE:20261125T120000\nBEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT1H\nREPEAT:1\n"
        "DURATION:PT10M\nEND:VALARM\nBEGIN:VALARM\nACTION:DISPLAY\n"
        "TRIGGER;RELATED=END:PT0S\nEND:VALARM\n");
    reminder->Look();
    EXPECT_EQ(clock.Wake(), "2026-11-25T11:00:00");
    clock.SleepUntil("2026-11-25T11:05:00");
    EXPECT_EQ(std::exchange(told, ""), "Reminder of 1 to-do\nCall (due 25 Nov 2026 12:00:00)");
    clock.SleepUntil("2026-11-25T11:50:00");
    EXPECT_NE(std::exchange(told, ""), "");
    EXPECT_EQ(clock.wakes, 2);
    // The last one is missed, and the next program tells it.
    reminder.reset();
    ToDoStore::SetNow("2026-11-26T09:00:00");
    reminder = Make();
    EXPECT_THAT(Look(), HasSubstr("Call"));
    EXPECT_EQ(clock.Wake(), "");
    reminder.reset();
    reminder = Make();
    EXPECT_EQ(Look(), "");
}

TEST_F(ReminderTest, HeedsAClockThatIsSetAndWhatOthersHaveAcknowledged) {
    store.options.SetAlarmSet(0);
    reminder->Start();
    const std::int64_t id = Import(
        "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER;VALUE=DATE-TIME:20261126T090000Z\n"
        "END:VALARM\n");
    reminder->Look();
    clock.Set("2026-11-27T09:00:00");
    EXPECT_EQ(std::exchange(told, ""), "Reminder of 1 to-do\nCall");
    store.Change(id, [](CToDoRecord& record) {
        EditToDoText(record, [](ToDoText& text) {
            const std::int64_t now = CTime::GetCurrentTime().GetTime();
            return SnoozeReminders(text, now, now, now + 600);
        });
    });
    reminder->Forget(id);
    reminder->Look();
    EXPECT_EQ(clock.Wake(), "2026-11-27T09:10:00");
    store.Change(id, [](CToDoRecord& record) {
        EditToDoText(record, [](ToDoText& text) {
            const std::int64_t later = CTime::GetCurrentTime().GetTime() + 600;
            return AcknowledgeReminders(text, later, later);
        });
    });
    reminder->Forget(id);
    reminder->Look();
    EXPECT_EQ(clock.Wake(), "");
    EXPECT_EQ(told, "");
}

TEST_F(ReminderTest, OnlyWhatIsShownWholeCanBeCompletedFromANote) {
    store.Add("Write", "2026-11-25T10:00:00");
    Look();
    EXPECT_EQ(last.buttons.size(), 5U);
    const std::optional<ReminderAnswer> answer = ReminderAnswer::Of(last.buttons[0].answer);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->kind, ReminderAnswer::Kind::Complete);
    EXPECT_EQ(answer->ids, std::vector<std::int64_t>{1});
    store.options.SetShowingPrivate(0);
    store.Add("Xanadu", "2026-11-25T10:00:00", true);
    Look();
    EXPECT_EQ(last.buttons.size(), 4U);
    EXPECT_FALSE(ReminderAnswer::Of("default"));
}

}  // namespace
}  // namespace orvo::desktop
