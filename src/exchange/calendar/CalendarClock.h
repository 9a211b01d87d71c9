// The dates of calendar files: days, local times, and times in UTC or in the zones of a calendar.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <contracts/StoreEngine.h>
#include <exchange/lines/ContentLine.h>

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

    // Sets the calendar's own zones: texts of VTIMEZONE components, and the opening of a calendar
    // of vCalendar, whose TZ line names the zone of the times that name none.
    void SetZones(const std::vector<SharedText>& timeZones);

    // Nothing where the line isn't a date that is there, or where its year is far outside of the
    // dates that a record takes.
    std::optional<CalendarDate> Read(const ContentLine& line);
    // The end of a duration from a date on.
    std::optional<CalendarDate> ReadEnd(const ContentLine& start, const ContentLine& duration);

    // The value of a line for that moment, in the form and zone of `date`.
    std::string Format(std::int64_t moment, const CalendarDate& date);

private:
    struct Zones;
    std::unique_ptr<Zones> m_zones;
};

// True for the text of a VTIMEZONE component; its TZID.
bool IsZone(std::string_view text);
std::string ZoneNameOf(std::string_view zone);

}  // namespace orvo
