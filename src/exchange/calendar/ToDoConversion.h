// The lines of a to-do that both calendar formats have, carried from one to the other.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <exchange/calendar/CalendarClock.h>
#include <exchange/calendar/ToDoFields.h>

namespace orvo {

// The lines of `source` in the other format: those that fill no field, its UID and priority among
// them; times in a zone become times in UTC. `charset` is the
// legacy set that its origin names. Leaves the clock with the zones of `source`.
std::string ConvertLines(const ToDoSource& source, std::string_view charset, Dialect dialect,
                         CalendarClock& clock);

}  // namespace orvo
