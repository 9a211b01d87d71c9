// What the user is told of to-dos, and how often.
// SPDX-License-Identifier: MIT
#include <QLocale>

#include <gmock/gmock.h>

#include <desktop/reminder/Reminder.h>
#include <platform/settings/SettingsFixture.h>

#include "ToDoStore.h"

namespace orvo::desktop {
namespace {

using testing::HasSubstr;

class ReminderTest : public SettingsFixture {
protected:
    ReminderTest() { QLocale::setDefault(QLocale::c()); }

    // What the next look tells at once, title and body; empty for nothing.
    std::string Look() {
        told.clear();
        reminder.Look();
        return told;
    }

    ToDoStore store;
    std::string told;
    Reminder reminder{store.engine, store.options,
                      [this](const QString& title, const QString& body) {
                          EXPECT_EQ(told, "");
                          told = (title + "\n" + body).toStdString();
                      }};
};

TEST_F(ReminderTest, TellsOnceTogetherWhatHasPassed) {
    store.Add("Write", "2026-11-24T08:00:00");
    store.Add("Paint\nthe\tdoor", "2026-11-25");
    reminder.Start();
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

}  // namespace
}  // namespace orvo::desktop
