// Recurrence rules as a form offers them and as words tell them.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <exchange/calendar/WallTime.h>

namespace orvo {

struct RepeatRule {
    enum class Unit : std::uint8_t { Day, Week, Month, Year };
    struct Place {
        int ordinal = 1;  // 1 to 5, or from the end -1 to -5
        int weekday = 0;
        bool operator==(const Place&) const = default;
    };

    Unit unit = Unit::Day;
    int interval = 1;
    // What of these is empty, and a month of 0, is as in the date from which the rule is counted.
    std::vector<int> weekdays;   // of weeks: 0, Monday, to 6
    std::vector<int> monthDays;  // of months and years: 1 to 31, or -1, the last day
    std::vector<Place> places;   // of months and years, in place of monthDays
    int month = 0;               // of years: 1 to 12
    std::optional<std::int64_t> count;
    std::optional<WallTime> until;
    std::string weekStart;  // as the rule has it
};

// Reads the value of an RRULE.
// Returns:  nothing where it says more than such a rule can, or isn't one.
std::optional<RepeatRule> ReadRepeatRule(std::string_view rule);

// The value of an RRULE.
std::string FormatRepeatRule(const RepeatRule& rule);

// 0 for Monday.
int WeekdayOfDay(std::int64_t day);

}  // namespace orvo
