// The reminders of a to-do: the alarms in its text (RFC 5545, RFC 9074).
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include <exchange/calendar/ReminderTime.h>
#include <exchange/calendar/ToDoText.h>

namespace orvo {

struct ToDoReminder {
    ReminderTime time;
    // When it comes, in seconds since 1970-01-01 UTC, for the present dates of the to-do, which
    // begin with the day where they have no time; nothing where the to-do has no such date.
    std::optional<std::int64_t> first;
    std::int64_t repeats = 0;  // how often it comes again
    std::int64_t pause = 0;    // seconds between
    std::int64_t acknowledged = std::numeric_limits<std::int64_t>::min();  // up to then
    bool isSnooze = false;  // the user has put another one off till then

    // The first time behind a moment at which it comes and that wasn't acknowledged.
    std::optional<std::int64_t> Next(std::int64_t after) const;
    // The last time up to a moment at which it comes, where that wasn't acknowledged.
    std::optional<std::int64_t> Last(std::int64_t upTo) const;
};

// Those that show or sound something, in the order of the text. One whose time isn't understood is
// passed over.
std::vector<ToDoReminder> ReadReminders(const ToDoText& toDo);

// All of them edit a to-do for EditToDoText; all else in it stays byte for byte.
// Returns:  false where nothing had to be changed.

// Makes its reminders come at these times. Those that come at one of them stay as they are, as do
// snoozed ones and those that aren't understood.
bool SetReminders(ToDoText& toDo, const std::vector<ReminderTime>& times);
bool AddReminder(ToDoText& toDo, const ReminderTime& time);
bool RemoveReminder(ToDoText& toDo, const ReminderTime& time);

// Marks those that came up to the moment `told` as seen at `now`, so that no other device comes
// with them either.
bool AcknowledgeReminders(ToDoText& toDo, std::int64_t told, std::int64_t now);

// The same, and comes again at the moment `until`, also where the to-do has no reminder.
bool SnoozeReminders(ToDoText& toDo, std::int64_t told, std::int64_t now, std::int64_t until);

// Takes away what was put off, as where the date is over that it stands for.
bool RemoveSnoozes(ToDoText& toDo);

}  // namespace orvo
