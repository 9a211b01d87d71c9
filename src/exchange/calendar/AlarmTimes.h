// The times of alarms, as calendar files write them.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <exchange/calendar/CalendarClock.h>
#include <exchange/calendar/ReminderTime.h>

namespace orvo {

// "-P1DT2H30M" in seconds; nothing for text of another form and beyond a hundred years.
std::optional<std::int64_t> ReadLength(std::string_view text);

// The TRIGGER of an alarm.
std::optional<ReminderTime> ReadTrigger(const ContentLine& line, CalendarClock& clock);
// As a whole, without a line end.
std::string FormatTrigger(const ReminderTime& time);

// The dates of a to-do from which reminders count, in seconds since 1970-01-01 UTC.
struct ReminderDates {
    std::optional<std::int64_t> start;
    std::optional<std::int64_t> due;
};

// Without a start, what counts from there counts from the due date.
std::optional<std::int64_t> MomentOf(const ReminderTime& time, const ReminderDates& dates);

// The moment of a date; a day counts from its beginning.
std::int64_t BeginOf(const CalendarDate& date);

}  // namespace orvo
