// What the user is told of to-dos, and how often.
// SPDX-License-Identifier: MIT
#include <QLocale>

#include <gmock/gmock.h>

#include <desktop/reminder/Reminder.h>
#include <platform/settings/SettingsFixture.h>

#include "ToDoStore.h"

namespace orvo::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ReminderTest : public SettingsFixture {
protected:
    ReminderTest() { QLocale::setDefault(QLocale::c()); }

    ToDoStore store;
    std::vector<std::string> told;  // title and body
    Reminder reminder{store.engine, store.options,
                      [this](const QString& title, const QString& body) {
                          told.push_back((title + "\n" + body).toStdString());
                      }};
};

TEST_F(ReminderTest, TellsOnceTogetherWhatHasPassed) {
    store.Add("Write", "2026-11-24T08:00:00");
    store.Add("Paint\nthe\tdoor", "2026-11-25");
    reminder.Start();
    reminder.Look();

    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr("Reminder of 2 to-dos\nWrite (due 24 Nov 2026 08:00:00)\n"
                                   "Paint the door (due 25 Nov 2026)"));
}

TEST_F(ReminderTest, TellsLaterWhatComesLater) {
    store.Add("Write", "2026-11-25T10:06:00");
    reminder.Look();
    EXPECT_THAT(told, IsEmpty());
    store.SetNow("2026-11-25T10:01:00");
    reminder.Look();
    EXPECT_THAT(told, ElementsAre(HasSubstr("Reminder of 1 to-do\nWrite")));
}

TEST_F(ReminderTest, TellsAgainOfAToDoThatIsPutOff) {
    const std::int64_t id = store.Add("Write", "2026-11-25T10:00:00");
    reminder.Look();
    store.Change(id, [](CToDoRecord& record) {
        record.SetDueDate(MomentOfCivil(*ParseIso("2026-11-25T10:02:00")));
    });
    reminder.Look();
    EXPECT_EQ(told.size(), 2U);
}

TEST_F(ReminderTest, AsLongAsTheOptionIsOffNothingCountsAsTold) {
    store.Add("Write", "2026-11-25T10:00:00");
    store.options.SetAlarmSet(0);
    reminder.Look();
    EXPECT_THAT(told, IsEmpty());
    store.options.SetAlarmSet(1);
    reminder.Look();
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(ReminderTest, OfManyTheFirstTenAreNamed) {
    for (int i = 0; i < 13; ++i) store.Add("Write", "2026-11-25T10:00:00");
    reminder.Look();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(std::count(told.at(0).begin(), told.at(0).end(), '\n'), 11);
    EXPECT_THAT(told[0], HasSubstr("and 3 other to-dos"));
}

TEST_F(ReminderTest, CutsALongTextBetweenCharacters) {
    const std::string wide = "\xF0\x9F\x90\x88";  // one that takes two places
    std::string text = "x";
    for (int i = 0; i < 200; ++i) text += wide;
    store.Add(text.c_str(), "2026-11-25T10:00:00");
    reminder.Look();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(wide + "\u2026 (due"));
}

TEST_F(ReminderTest, NamesNoPrivateToDoThatIsHidden) {
    store.Add("Xanadu", "2026-11-25T10:00:00", true);
    store.options.SetShowingPrivate(0);
    reminder.Look();
    EXPECT_THAT(told, ElementsAre(HasSubstr("\nPrivate to-do (due")));
}

}  // namespace
}  // namespace orvo::desktop
