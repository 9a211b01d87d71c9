// Of which to-dos the user is to be reminded, and when.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <contracts/RecordStore.h>
#include <desktop/reminder/ToldReminders.h>
#include <exchange/calendar/Reminders.h>
#include <orvoshare/options/DesktopOptions.h>
#include <platform/time/TimeZone.h>

namespace orvo::desktop {

struct DueReminder {
    std::int64_t id = 0;
    std::int64_t moment = 0;       // at which it came last
    std::optional<CivilTime> due;  // as the to-do has it
    std::string description;       // UTF-8; empty for a private to-do that is masked or hidden
    bool isWhole = true;           // false for such a one
};

// True for a due time that means a whole day: its first second, or its last one.
bool IsWholeDay(const CivilTime& due);

// The next reminder of each to-do that is neither completed nor archived: its own ones, and, where
// the options have it, as long before it is due as they say, in minutes, hours or days for a unit
// of 0, 1 or else. For the latter, what is due on a day, without a time, is due when the work day
// begins. To-dos that can't be read are passed over.
class ReminderPlan {
public:
    // Both outlive it; the options are looked at when to-dos are read.
    ReminderPlan(CToDoTable& toDos, const COrvoDesktopOptions& options)
        : m_toDos(toDos), m_options(options) {}

    // The to-do isn't as it was; none is.
    void Forget(std::int64_t id) { m_forgotten.insert(id); }
    void Clear();

    // Reads what isn't read yet, for about that time.
    // Returns:  false where more is to be read.
    bool Read(std::chrono::milliseconds time, const ToldReminders& told);

    // Reads the rest. What has come up to the moment and wasn't told, by the time at which it is
    // due; told from then on.
    std::vector<DueReminder> Take(std::int64_t now, ToldReminders& told);
    // When the next one comes, as far as to-dos are read; nothing where none does.
    std::optional<std::int64_t> Next() const;

private:
    std::vector<ToDoReminder> RemindersOf(const CToDoRecord& record) const;
    void AddGeneral(const std::optional<CivilTime>& due,
                    std::vector<ToDoReminder>& reminders) const;
    void Plan(const CToDoRecord& record, const ToldReminders& told);
    void PlanRow(const StoredRow& row, const ToldReminders& told);
    void PlanNext(std::int64_t id, const std::vector<ToDoReminder>& reminders,
                  const ToldReminders& told);
    bool Step(const ToldReminders& told);
    std::optional<DueReminder> TakeOne(std::int64_t id, std::int64_t before, std::int64_t now,
                                       ToldReminders& told);

    CToDoTable& m_toDos;
    const COrvoDesktopOptions& m_options;
    std::map<std::int64_t, std::int64_t> m_next;  // by the ids
    std::set<std::int64_t> m_forgotten;
    std::unique_ptr<StoreCursor> m_walk;  // while the table is being read
    bool m_isWalked = false;
};

}  // namespace orvo::desktop
