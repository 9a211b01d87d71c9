// The dates of calendar files: days, local times, and times in UTC or in the zones of a calendar.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <exchange/ContentLine.h>

namespace orvo {

struct CalendarDate {
    enum class Form : std::uint8_t { Day, Floating, Utc, Zoned };
    std::int64_t moment = 0;  // of a day: its last second
    Form form = Form::Floating;
    std::string zone;  // the TZID of the form Zoned
};

// Reads and writes dates. A zone is one of the calendar's own, else one that the system knows by
// that name; a time in an unknown zone is taken as local.
class CalendarClock {
public:
    CalendarClock();
    ~CalendarClock();

    // Sets the calendar's own zones: the text of its VTIMEZONE components, before which a TZ line
    // of vCalendar may stand, which tells the zone of the times that name none.
    void SetZones(std::string_view timeZones);

    // Nothing where the line isn't a date that is there, or where its year is far outside of the
    // dates that a record takes.
    std::optional<CalendarDate> Read(const ContentLine& line);
    // The end of a duration from a date on.
    std::optional<CalendarDate> ReadEnd(const ContentLine& start, const ContentLine& duration);

    // The value of a line for that moment, in the form and zone of `date`.
    std::string Format(std::int64_t moment, const CalendarDate& date);

private:
    struct Zones;
    std::map<std::string, std::unique_ptr<Zones>> m_known;  // by the text of the zones
    Zones* m_zones = nullptr;
};

}  // namespace orvo
