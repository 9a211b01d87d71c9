// Reminders in plain English, as a command line has them.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <exchange/calendar/ReminderTime.h>

namespace orvo {

// Reads "15 min before", "1 hour after start", "2 days", which is before the due date, "at due",
// "at start" and a local time, "2026-12-24 10:00", also with a "T" and with seconds. Units may be
// cut to their first letter.
// Returns:  nothing for text of another form and for more than a hundred years.
std::optional<ReminderTime> ReadReminder(std::string_view text);

// What ReadReminder reads back: "15 minutes before due", "at start", "2026-12-24 10:00".
std::string FormatReminder(const ReminderTime& time);

}  // namespace orvo
