// Edits on when a to-do begins and how it comes again, from text to text.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <exchange/calendar/ToDoText.h>
#include <platform/time/TimeZone.h>

namespace orvo {

// Gives the to-do that rule in place of all that it had of the kind: rules, and dates that come on
// top or are left out. An empty rule has it come once; the instances of the series go then, too. A
// day as its UNTIL becomes the end of that day as the to-do's dates are written.
// Returns:  false, with nothing changed, where the to-do has neither start nor due date.
bool SetRule(ToDoText& toDo, std::string_view rule);

// Sets the day on which the to-do begins, or takes it away; a time of day that it has stays.
void SetStartDay(ToDoText& toDo, const std::optional<CivilTime>& day);

}  // namespace orvo
