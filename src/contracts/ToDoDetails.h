// What a to-do's calendar lines say that a view shows, so that it needn't read those.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <platform/Export.h>
#include <platform/time/TimeZone.h>

namespace orvo {

struct ToDoDetails {
    std::optional<CivilTime> start;  // as the local clock shows it; of a day its first second
    std::string recurrence;          // the value of its RRULE (RFC 5545); empty where it comes once
    std::string parent;              // the UID of the to-do that it is a part of; mostly empty
    int percent = 0;                 // 0 to 100
    bool hasReminders = false;       // it has a VALARM
    bool operator==(const ToDoDetails&) const = default;
};

// Stands for a recurrence that isn't one short RRULE alone: several of them, or dates.
constexpr std::string_view kOtherRecurrence = "OTHER";

// Reads the first to-do of a text (RFC 5545, vCalendar 1.0). Without its calendar's time zones the
// start is what the clock shows where the to-do was made, but for times in UTC.
ORVO_API ToDoDetails ReadToDoDetails(std::string_view source);

}  // namespace orvo
