// Dates and times as calendars write them, whatever their zone.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvo {

constexpr std::int64_t kSecondsOfDay = 86400;

// What a clock on the wall shows, in seconds since 1970-01-01 00:00:00 on that clock. A day is its
// first second.
using WallSeconds = std::int64_t;

struct WallTime {
    enum class Form : std::uint8_t { Day, Local, Utc };
    WallSeconds seconds = 0;
    Form form = Form::Local;
};

// Reads "20261126", "20261126T090000" and "20261126T090000Z", also with '-' and ':' in them.
// Returns:  nothing where it isn't a time that is there.
std::optional<WallTime> ParseWallTime(std::string_view text);

// The time in one of these forms, without '-' and ':'.
std::string FormatWallTime(const WallTime& time);

// The number of the day, from 1970-01-01 on.
std::int64_t DayOf(WallSeconds seconds);

}  // namespace orvo
