// Which to-dos the user is reminded of, and when.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <desktop/reminder/ReminderPlan.h>
#include <platform/settings/SettingsFixture.h>

#include "ToDoStore.h"

namespace orvo::desktop {
namespace {

using testing::ElementsAre;

using ReminderPlans = SettingsFixture;

std::vector<std::string> Reminded(ToDoStore& store) {
    std::vector<std::string> texts;
    ReminderPlan plan(store.toDos, store.options);
    ToldReminders told("/orvo.db");
    for (const DueReminder& reminder : plan.Take(CTime::GetCurrentTime().GetTime(), told)) {
        texts.push_back(reminder.description);
    }
    return texts;
}

TEST_F(ReminderPlans, ComeTheAdvanceBeforeTheToDoIsDue) {
    struct {
        const char* why;
        const char* due;
        int advance;
        int unit;
        bool want;
    } const rows[] = {{"five minutes before", "2026-11-25T10:05:00", 5, 0, true},
                      {"not a second earlier", "2026-11-25T10:05:01", 5, 0, false},
                      {"at the moment itself", "2026-11-25T10:00:00", 0, 0, true},
                      {"after it", "2026-11-24T08:00:00", 0, 0, true},
                      {"hours", "2026-11-25T12:00:00", 2, 1, true},
                      {"not a second more than hours", "2026-11-25T12:00:01", 2, 1, false},
                      {"days", "2026-11-28T10:00:00", 3, 2, true},
                      {"not a second more than days", "2026-11-28T10:00:01", 3, 2, false},
                      {"a unit that isn't there counts as days", "2026-11-28T10:00:00", 3, 7, true},
                      {"any number", "2026-11-28T10:00:00", 2147483647, 2, true},
                      {"a day begins with the work", "2026-11-25", 0, 0, true},
                      {"also where its end stands for it", "2026-11-25T23:59:59", 0, 0, true},
                      {"and not before", "2026-11-26", 22, 1, false},
                      {"an hour later it does", "2026-11-26", 23, 1, true}};
    for (const auto& row : rows) {
        ToDoStore store;
        store.Add("Write", row.due);
        store.options.SetAlarmAdvance(row.advance);
        store.options.SetAlarmAdvUnit(row.unit);
        EXPECT_EQ(!Reminded(store).empty(), row.want) << row.why;
    }
}

TEST_F(ReminderPlans, AreForWhatIsOpenAndHasADate) {
    ToDoStore store;
    store.Add("without a date", "");
    const std::int64_t done = store.Add("done", "2026-11-25");
    const std::int64_t deleted = store.Add("deleted", "2026-11-25");
    store.Add("open", "2026-11-25");
    store.Change(done, [](CToDoRecord& record) { record.SetCompleted(1, 0); });
    store.Change(deleted, [&](CToDoRecord& record) { store.toDos.Delete(record); });

    EXPECT_THAT(Reminded(store), ElementsAre("open"));
}

TEST_F(ReminderPlans, TheFirstDueComesFirst) {
    ToDoStore store;
    store.Add("at ten", "2026-11-25T10:00:00");
    store.Add("as work begins", "2026-11-25");
    store.Add("at eight", "2026-11-25T08:00:00");

    EXPECT_THAT(Reminded(store), ElementsAre("at eight", "as work begins", "at ten"));
}

TEST_F(ReminderPlans, KeepTheTextOfAPrivateToDoUnlessItIsShown) {
    ToDoStore store;
    store.Add("Xanadu", "2026-11-25", true);
    EXPECT_THAT(Reminded(store), ElementsAre("Xanadu"));
    store.options.SetMaskingPrivate(1);
    EXPECT_THAT(Reminded(store), ElementsAre(""));
    store.options.SetMaskingPrivate(0);
    store.options.SetShowingPrivate(0);
    EXPECT_THAT(Reminded(store), ElementsAre(""));
}

}  // namespace
}  // namespace orvo::desktop
