// To-dos that come again: where a series stands, and how it goes on.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <exchange/calendar/CalendarClock.h>
#include <exchange/calendar/ToDoText.h>

namespace orvo {

// A series stands at its DTSTART, or at its DUE where it has no DTSTART or where only the due date
// follows its rule; from there its rule is counted. However its lines are made, each of these takes
// a bounded number of steps.

// The series at its next date, and open again: start, due date and absolute alarms move by the
// clock of the series; the dates passed are taken off COUNT, RDATE and EXDATE, and what was
// acknowledged or put off off its alarms. All other lines stay byte for byte. Instances that stand
// in the series as completed or cancelled ones are passed over.
// Returns:  nothing where the present date is the last one, and where the series can't be
//           understood.
std::optional<ToDoText> MovedToNext(const ToDoText& series);

// The to-do of the present date alone, as its own instance in the series has it or else the series:
// without rule, alarms and UID.
ToDoText CompletedCopy(const ToDoText& series);

// The dates after the present one, `most` at the most, as far as a record can have them.
std::vector<CalendarDate> NextDates(const ToDoText& series, std::size_t most);

// An instance of a series that differs from it.
struct Override {
    std::optional<CalendarDate> date;  // its place in the series; nothing where it says none
    std::string text;                  // its VTODO
    std::string description;           // UTF-8
    bool isCompleted = false;
};
// Those of the series in the order of their dates.
std::vector<Override> OverridesOf(const ToDoText& series);

}  // namespace orvo
