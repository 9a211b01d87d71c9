// The dates of a series.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <limits>

#include <exchange/calendar/SeriesDates.h>

namespace orvo {
namespace {

bool IsTaken(const SeriesPart& part) {
    const SeriesLine* status = part.Find("STATUS");
    if (!status) return false;
    const std::string_view value = Trimmed(status->line.value);
    return EqualsIgnoringCase(value, "COMPLETED") || EqualsIgnoringCase(value, "CANCELLED");
}

// COUNT and all that follows a rule of it is of any length; what doesn't fit is without an end.
std::int64_t CountOf(std::string_view rule) {
    const std::string_view text = Trimmed(RulePart(rule, "COUNT"));
    std::int64_t count = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), count);
    return read.ec == std::errc() && count > 0 ? count : std::numeric_limits<std::int64_t>::max();
}

}  // namespace

std::optional<SeriesClock> SeriesClock::Of(const ContentLine& line,
                                           const std::vector<SharedText>& timeZones) {
    const std::optional<WallTime> start = ParseWallTime(line.value);
    if (!start) return std::nullopt;
    SeriesClock clock;
    clock.m_clock->SetZones(timeZones);
    clock.m_start = *start;
    clock.m_zone = FindParameter(line.parameters, "TZID");
    clock.m_form = clock.m_clock->Read(line).value_or(CalendarDate{});
    return clock;
}

bool SeriesClock::IsSameClock(const WallTime& time, std::string_view parameters) const {
    if (time.form == WallTime::Form::Day) return true;
    if (time.form != m_start.form) return false;
    return time.form == WallTime::Form::Utc || FindParameter(parameters, "TZID") == m_zone;
}

WallSeconds SeriesClock::WallOf(const WallTime& time, std::string_view parameters) {
    if (IsSameClock(time, parameters)) return time.seconds;
    const std::string text = FormatWallTime(time);
    ContentLine line;
    line.parameters = parameters;
    line.value = text;
    const std::optional<CalendarDate> date = m_clock->Read(line);
    if (!date) return time.seconds;
    CalendarDate form = m_form;
    if (form.form == CalendarDate::Form::Day) form.form = CalendarDate::Form::Floating;
    const std::optional<WallTime> wall = ParseWallTime(m_clock->Format(date->moment, form));
    return wall ? wall->seconds : time.seconds;
}

WallSeconds SeriesClock::WallOf(const WallTime& time) {
    return time.form == WallTime::Form::Utc ? WallOf(time, {}) : time.seconds;
}

WallTime SeriesClock::TimeAt(WallSeconds wall, const WallTime& like, std::string_view parameters) {
    if (IsSameClock(like, parameters)) return {wall, like.form};
    WallTime own{wall, m_start.form};
    if (own.form == WallTime::Form::Day) own.form = WallTime::Form::Local;
    const std::string text = FormatWallTime(own);
    const std::string zone = "TZID=" + m_zone;
    ContentLine line;
    if (!m_zone.empty() && own.form == WallTime::Form::Local) line.parameters = zone;
    line.value = text;
    const std::optional<CalendarDate> date = m_clock->Read(line);
    if (!date) return {wall, like.form};
    const std::string likeText = FormatWallTime(like);
    line.parameters = parameters;
    line.value = likeText;
    const CalendarDate form = m_clock->Read(line).value_or(CalendarDate{});
    return ParseWallTime(m_clock->Format(date->moment, form)).value_or(WallTime{wall, like.form});
}

std::optional<CalendarDate> SeriesClock::DateAt(WallSeconds wall) {
    const std::string text = FormatWallTime({wall, m_start.form});
    const std::string zone = "TZID=" + m_zone;
    ContentLine line;
    if (!m_zone.empty()) line.parameters = zone;
    line.value = text;
    return m_clock->Read(line);
}

WallSeconds SeriesClock::UtcAt(WallSeconds wall) {
    if (m_start.form == WallTime::Form::Utc) return wall;
    const std::optional<CalendarDate> date = DateAt(wall);
    return date ? date->moment : wall;
}

std::vector<ListedDate> ListedDates(const ContentLine& line, SeriesClock& clock) {
    std::vector<ListedDate> dates;
    std::string_view item;
    for (std::string_view list = line.value; NextListItem(list, item);) {
        // A period counts by its start.
        const std::optional<WallTime> time = ParseWallTime(item.substr(0, item.find('/')));
        if (!time) continue;
        WallTime own = *time;
        if (own.form == WallTime::Form::Local) own.seconds = clock.WallOf(*time, line.parameters);
        dates.push_back({std::string(Trimmed(item)), own});
    }
    return dates;
}

SeriesDates::SeriesDates(const SeriesLines& lines, const SeriesPart& master, SeriesClock& clock)
    : m_clock(clock) {
    for (const SeriesLine& line : master.lines) TakeLine(line);
    const bool isExtra = m_extra.contains(clock.Start().seconds);
    for (const SeriesLine& line : master.lines) {
        if (line.Is("RRULE")) AddRule(line.line, isExtra);
    }
    for (const SeriesPart& part : lines.Parts()) TakeOverride(part);
    m_extra.erase(m_extra.begin(), m_extra.upper_bound(clock.Start().seconds));
}

void SeriesDates::TakeLine(const SeriesLine& line) {
    const bool isExtra = line.Is("RDATE");
    if (!isExtra && !line.Is("EXDATE")) return;
    const bool hasDays = m_clock.Start().form == WallTime::Form::Day;
    for (const ListedDate& date : ListedDates(line.line, m_clock)) {
        if (!isExtra) {
            LeaveOut(date.time);
            continue;
        }
        const WallSeconds wall = m_clock.WallOf(date.time);
        m_extra.insert(hasDays ? DayOf(wall) * kSecondsOfDay : wall);
    }
}

void SeriesDates::LeaveOut(const WallTime& time) {
    const bool hasDays = m_clock.Start().form == WallTime::Form::Day;
    if (time.form == WallTime::Form::Day || hasDays) {
        m_daysLeftOut.insert(DayOf(m_clock.WallOf(time)));
    } else if (time.form == WallTime::Form::Utc) {
        m_leftOutUtc.insert(time.seconds);
    } else {
        m_leftOut.insert(time.seconds);
    }
}

void SeriesDates::AddRule(const ContentLine& line, bool isExtra) {
    const WallTime& start = m_clock.Start();
    Rule rule{RuleDates(line.value, start), CountOf(line.value), std::nullopt};
    if (const auto until = ParseWallTime(RulePart(line.value, "UNTIL"))) {
        const bool isDay = until->form == WallTime::Form::Day;
        const WallSeconds wall = m_clock.WallOf(*until, line.parameters);
        const bool countsDays = isDay || start.form == WallTime::Form::Day;
        rule.until = countsDays ? (DayOf(until->seconds) + 1) * kSecondsOfDay - 1 : wall;
    }
    rule.next = rule.dates.Next();
    // The present date counts as one of the rule's even where it doesn't follow it, unless it was
    // an extra one.
    const bool follows = rule.next == start.seconds;
    if (follows) rule.next = rule.dates.Next();
    if (follows || !isExtra) rule.passed = 1;
    m_rules.push_back(std::move(rule));
    Advance(m_rules.back());
}

// Checks that what comes next is still within the bounds of the rule.
void SeriesDates::Advance(Rule& rule) {
    const bool isOver =
        rule.passed >= rule.count || (rule.until && rule.next && *rule.next > *rule.until);
    if (isOver) rule.next.reset();
}

void SeriesDates::TakeOverride(const SeriesPart& part) {
    const SeriesLine* id = part.Find("RECURRENCE-ID");
    if (!id || !IsTaken(part)) return;
    for (const ListedDate& date : ListedDates(id->line, m_clock)) LeaveOut(date.time);
}

bool SeriesDates::IsLeftOut(WallSeconds wall) const {
    return m_leftOut.contains(wall) || m_daysLeftOut.contains(DayOf(wall)) ||
           (!m_leftOutUtc.empty() && m_leftOutUtc.contains(m_clock.UtcAt(wall)));
}

std::optional<SeriesDate> SeriesDates::Next() {
    while (true) {
        std::optional<WallSeconds> next;
        if (!m_extra.empty()) next = *m_extra.begin();
        for (const Rule& rule : m_rules) {
            if (rule.next && (!next || *rule.next < *next)) next = rule.next;
        }
        if (!next) return std::nullopt;
        SeriesDate date{*next, false, {}};
        for (Rule& rule : m_rules) {
            date.passedOfRule.push_back(rule.passed);
            if (rule.next != next) continue;
            date.isOfRule = true;
            ++rule.passed;
            rule.next = rule.dates.Next();
            Advance(rule);
        }
        m_extra.erase(*next);
        if (!IsLeftOut(*next)) return date;
    }
}

}  // namespace orvo
