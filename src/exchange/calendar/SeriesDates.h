// The dates of a series: its rules, the dates that come on top, and those that are left out.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <contracts/StoreEngine.h>
#include <exchange/calendar/CalendarClock.h>
#include <exchange/calendar/RuleDates.h>
#include <exchange/calendar/SeriesLines.h>
#include <exchange/calendar/WallTime.h>

namespace orvo {

// The clock from which a series is counted: that of its DTSTART, else of its DUE. A zone that isn't
// known is taken as that of this computer.
class SeriesClock {
public:
    // The line is the DTSTART or DUE.
    // Returns:  nothing where it says no time.
    static std::optional<SeriesClock> Of(const ContentLine& line,
                                         const std::vector<SharedText>& timeZones);

    const WallTime& Start() const { return m_start; }
    bool IsZoned() const { return m_form.form == CalendarDate::Form::Zoned; }

    // What this clock shows at a time of a line with those parameters.
    WallSeconds WallOf(const WallTime& time, std::string_view parameters);
    // The same for a time that is by this clock already, unless it is one in UTC.
    WallSeconds WallOf(const WallTime& time);
    // The time of such a line when this clock shows `wall`, in the form of `like`.
    WallTime TimeAt(WallSeconds wall, const WallTime& like, std::string_view parameters);
    WallSeconds UtcAt(WallSeconds wall);
    // The date of the series itself when this clock shows `wall`.
    std::optional<CalendarDate> DateAt(WallSeconds wall);

private:
    bool IsSameClock(const WallTime& time, std::string_view parameters) const;

    std::unique_ptr<CalendarClock> m_clock = std::make_unique<CalendarClock>();
    WallTime m_start;
    std::string m_zone;  // its TZID
    CalendarDate m_form;
};

// One date of a list such as EXDATE.
struct ListedDate {
    std::string text;  // as it is written
    WallTime time;     // a local one is by the clock of the series
};
// Those of the line's items that are dates.
std::vector<ListedDate> ListedDates(const ContentLine& line, SeriesClock& clock);

// A date of a series that isn't left out.
struct SeriesDate {
    WallSeconds wall;
    bool isOfRule;                           // else it stands in an RDATE
    std::vector<std::int64_t> passedOfRule;  // for each RRULE: how many dates are before this one
};

class SeriesDates {
public:
    // All of them must outlive it.
    SeriesDates(const SeriesLines& lines, const SeriesPart& master, SeriesClock& clock);

    // The next date after the one at which the series stands, then those that follow.
    // Returns:  nothing when the series is over.
    std::optional<SeriesDate> Next();

private:
    struct Rule {
        RuleDates dates;
        std::int64_t count;  // of dates, the present one among them
        std::optional<WallSeconds> until;
        std::optional<WallSeconds> next{};
        std::int64_t passed = 0;
    };

    void AddRule(const ContentLine& line, bool isExtra);
    void Advance(Rule& rule);
    void TakeLine(const SeriesLine& line);
    void TakeOverride(const SeriesPart& part);
    void LeaveOut(const WallTime& time);
    bool IsLeftOut(WallSeconds wall) const;

    SeriesClock& m_clock;
    std::vector<Rule> m_rules;
    std::set<WallSeconds> m_extra;
    std::set<WallSeconds> m_leftOut;
    std::set<WallSeconds> m_leftOutUtc;  // as converting each of thousands takes long
    std::set<std::int64_t> m_daysLeftOut;
};

}  // namespace orvo
