// Civil time, and the time zone of the system that ties it to moments.
// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

// A day and a time of day as a calendar and a clock on the wall show them, without a zone.
struct CivilTime {
    int year = 1970;
    int month = 1;  // 1 to 12
    int day = 1;    // 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;

    auto operator<=>(const CivilTime&) const = default;
};

// Sets the zone of the process as TZ names it ("Asia/Tokyo"; an empty name stands for
// /etc/localtime) and forgets what was worked out for the one before. Call it while no other thread
// uses time.
ORVO_API void SetSystemTimeZone(std::string_view name);

// The moment, in seconds since 1970-01-01 00:00:00 UTC, at which the local clock shows `civil`. A
// time that the local clock leaves out at a change is moved on by the length of the gap; one that
// it shows twice is the first of the two. Fields out of their range are carried over, as the
// calendar does: month 13 is January of the next year.
ORVO_API std::int64_t MomentOfCivil(const CivilTime& civil);

// What the local clock shows at a moment; nothing where the year doesn't fit an int.
ORVO_API std::optional<CivilTime> CivilOfMoment(std::int64_t moment);

// Days from 1970-01-01 to a day of the proleptic Gregorian calendar, and back, for days whose year
// fits an int. Months and days out of their range are carried over.
ORVO_API std::int64_t DaysOfCivil(std::int64_t year, int month, int day);
ORVO_API CivilTime CivilOfDays(std::int64_t days);

// "2026-12-24" or "2026-12-24T17:30:00", and back; nothing for text of another form or for a day
// that isn't there. For years from 0 to 9999.
ORVO_API std::string FormatIso(const CivilTime& civil);
ORVO_API std::string FormatIsoDay(const CivilTime& civil);
ORVO_API std::optional<CivilTime> ParseIso(std::string_view text);

}  // namespace orvo
