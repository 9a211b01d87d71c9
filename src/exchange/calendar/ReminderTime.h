// When a reminder of a to-do comes.
// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>

namespace orvo {

struct ReminderTime {
    enum class From : std::uint8_t { Due, Start, Moment };
    From from = From::Due;
    // Of a moment: since 1970-01-01, UTC. Else how long before that date; behind it where negative.
    // Whole days are days of the calendar.
    std::int64_t seconds = 0;

    auto operator<=>(const ReminderTime&) const = default;
};

}  // namespace orvo
