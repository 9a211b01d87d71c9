// To-dos that come again.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <charconv>

#include <fmt/format.h>

#include <exchange/calendar/Recurrence.h>
#include <exchange/calendar/Reminders.h>
#include <exchange/calendar/SeriesDates.h>
#include <exchange/calendar/SeriesLines.h>
#include <exchange/calendar/ToDoFields.h>
#include <exchange/lines/EntryReader.h>
#include <platform/time/TimeZone.h>

namespace orvo {
namespace {

bool IsOneOf(const SeriesLine& line, std::initializer_list<std::string_view> names) {
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view name) { return line.Is(name); });
}

// A series whose lines are read, with the clock that it is counted by.
struct ReadSeries {
    SeriesLines lines;
    SeriesPart* master;
    std::optional<SeriesClock> clock;

    explicit ReadSeries(const ToDoText& series) : lines(series.text), master(lines.Master()) {
        const SeriesLine* anchor = master ? AnchorOf(*master) : nullptr;
        if (anchor) clock = SeriesClock::Of(anchor->line, series.timeZones);
    }
};

// Takes the alarm's lines from `place` on away, to its END.
void RemoveComponent(std::vector<SeriesLine>& lines, std::size_t place) {
    int depth = 0;
    for (; place < lines.size() && lines[place].isNested; ++place) {
        if (EqualsIgnoringCase(lines[place].line.name, "BEGIN")) ++depth;
        if (EqualsIgnoringCase(lines[place].line.name, "END")) --depth;
        Remove(lines[place]);
        if (depth == 0) return;
    }
}

bool BeginsComponent(const SeriesLine& line) {
    return line.isNested && EqualsIgnoringCase(line.line.name, "BEGIN");
}

// True for the alarm that another one was put off to.
bool IsPutOff(const std::vector<SeriesLine>& lines, std::size_t place) {
    for (; place < lines.size() && !EqualsIgnoringCase(lines[place].line.name, "END"); ++place) {
        const ContentLine& line = lines[place].line;
        if (EqualsIgnoringCase(line.name, "RELATED-TO") &&
            EqualsIgnoringCase(FindParameter(line.parameters, "RELTYPE"), "SNOOZE")) {
            return true;
        }
    }
    return false;
}

// Moves the lines of a series from the date where it stands to another one.
class Move {
public:
    Move(SeriesPart& master, SeriesClock& clock, const SeriesDate& date)
        : m_master(master), m_clock(clock), m_date(date) {}

    void Run() {
        for (std::size_t i = 0; i < m_master.lines.size(); ++i) {
            SeriesLine& line = m_master.lines[i];
            if (line.replacement) continue;
            if (BeginsComponent(line) && IsPutOff(m_master.lines, i)) {
                RemoveComponent(m_master.lines, i);
            } else if (line.isNested) {
                EditAlarm(line);
            } else if (IsOneOf(line, {"DTSTART", "DUE"})) {
                Shift(line);
            } else if (line.Is("RRULE")) {
                EditRule(line);
            } else if (IsOneOf(line, {"RDATE", "EXDATE"})) {
                RemovePassed(line);
            } else {
                Reopen(line);
            }
        }
    }

private:
    void Shift(SeriesLine& line) {
        const std::optional<WallTime> time = ParseWallTime(line.line.value);
        if (!time) return;
        const std::string_view parameters = line.line.parameters;
        const WallSeconds wall = m_clock.WallOf(*time, parameters) + Distance();
        Replace(line, FormatWallTime(m_clock.TimeAt(wall, *time, parameters)));
    }

    WallSeconds Distance() const { return m_date.wall - m_clock.Start().seconds; }

    void EditAlarm(SeriesLine& line) {
        if (EqualsIgnoringCase(line.line.name, "ACKNOWLEDGED")) {
            Remove(line);
        } else if (EqualsIgnoringCase(line.line.name, "TRIGGER")) {
            Shift(line);
        }
    }

    void EditRule(SeriesLine& line) {
        const std::string_view rule = line.line.value;
        const std::string_view count = RulePart(rule, "COUNT");
        const std::int64_t passed = m_date.passedOfRule[m_rule++];
        std::int64_t number = 0;
        const auto read = std::from_chars(count.data(), count.data() + count.size(), number);
        std::string text(rule);
        if (!count.empty() && read.ec == std::errc()) {
            text.replace(static_cast<std::size_t>(count.data() - rule.data()), count.size(),
                         std::to_string(std::max<std::int64_t>(number - passed, 1)));
        }
        if (!m_date.isOfRule) text += Pins(rule);
        if (text != rule) Replace(line, text);
    }

    // What a rule leaves to its start. Where the series moves to a date that isn't of the rule, it
    // has to say so itself.
    std::string Pins(std::string_view rule) const {
        const auto has = [&](std::string_view part) { return !RulePart(rule, part).empty(); };
        const std::string_view unit = Trimmed(RulePart(rule, "FREQ"));
        const WallSeconds wall = m_clock.Start().seconds;
        const CivilTime day = CivilOfDays(DayOf(wall));
        const bool hasDay =
            has("BYDAY") || has("BYMONTHDAY") || has("BYYEARDAY") || has("BYWEEKNO");
        const bool isYearly = EqualsIgnoringCase(unit, "YEARLY");
        std::string pins;
        if (isYearly && !hasDay && !has("BYMONTH")) pins = fmt::format(";BYMONTH={}", day.month);
        if ((isYearly || EqualsIgnoringCase(unit, "MONTHLY")) && !hasDay) {
            pins += fmt::format(";BYMONTHDAY={}", day.day);
        } else if (EqualsIgnoringCase(unit, "WEEKLY") && !hasDay) {
            constexpr std::array<std::string_view, 7> kFromThursday{"TH", "FR", "SA", "SU",
                                                                    "MO", "TU", "WE"};
            const std::int64_t place = (DayOf(wall) % 7 + 7) % 7;
            pins += fmt::format(";BYDAY={}", kFromThursday[static_cast<std::size_t>(place)]);
        }
        if ((m_date.wall - wall) % kSecondsOfDay == 0) return pins;
        const WallSeconds rest = wall - DayOf(wall) * kSecondsOfDay;
        if (!has("BYHOUR")) pins += fmt::format(";BYHOUR={}", rest / 3600);
        if (!has("BYMINUTE")) pins += fmt::format(";BYMINUTE={}", rest / 60 % 60);
        return pins;
    }

    void RemovePassed(SeriesLine& line) {
        std::vector<ListedDate> dates = ListedDates(line.line, m_clock);
        const WallSeconds utc = m_clock.UtcAt(m_date.wall);
        const auto isPassed = [&](const ListedDate& date) {
            const WallTime& time = date.time;
            if (time.form == WallTime::Form::Day) return DayOf(time.seconds) < DayOf(m_date.wall);
            return time.seconds < (time.form == WallTime::Form::Utc ? utc : m_date.wall);
        };
        if (std::none_of(dates.begin(), dates.end(), isPassed)) return;
        std::erase_if(dates, isPassed);
        std::string value;
        for (const ListedDate& date : dates) {
            if (!value.empty()) value += ',';
            value += date.text;
        }
        if (value.empty()) {
            Remove(line);
        } else {
            Replace(line, value);
        }
    }

    static void Reopen(SeriesLine& line) {
        if (IsOneOf(line, {"COMPLETED", "PERCENT-COMPLETE"})) Remove(line);
        const bool isOther =
            line.Is("STATUS") && !EqualsIgnoringCase(Trimmed(line.line.value), "NEEDS-ACTION");
        if (isOther) Replace(line, "NEEDS-ACTION");
    }

    SeriesPart& m_master;
    SeriesClock& m_clock;
    const SeriesDate& m_date;
    std::size_t m_rule = 0;
};

// The instance at which the series stands; null where it is as the series is.
const SeriesPart* PresentOverride(ReadSeries& series) {
    if (!series.clock) return nullptr;
    const WallTime& start = series.clock->Start();
    for (const SeriesPart& part : series.lines.Parts()) {
        const SeriesLine* id = part.Find("RECURRENCE-ID");
        if (!id) continue;
        for (const ListedDate& date : ListedDates(id->line, *series.clock)) {
            const bool byDay =
                date.time.form == WallTime::Form::Day || start.form == WallTime::Form::Day;
            const WallSeconds wall = series.clock->WallOf(date.time);
            if (byDay ? DayOf(wall) == DayOf(start.seconds) : wall == start.seconds) {
                return &part;
            }
        }
    }
    return nullptr;
}

}  // namespace

std::optional<ToDoText> MovedToNext(const ToDoText& series) {
    ReadSeries read(series);
    if (!read.clock) return std::nullopt;
    const std::optional<SeriesDate> next =
        SeriesDates(read.lines, *read.master, *read.clock).Next();
    if (!next) return std::nullopt;
    Move(*read.master, *read.clock, *next).Run();
    ToDoText moved{series.timeZones, read.lines.Text()};
    RemoveSnoozes(moved);
    return moved;
}

ToDoText CompletedCopy(const ToDoText& series) {
    ReadSeries read(series);
    const SeriesPart* instance = PresentOverride(read);
    if (!instance) instance = read.master;
    if (!instance) return series;
    SeriesPart copy = *instance;
    for (std::size_t i = 0; i < copy.lines.size(); ++i) {
        SeriesLine& line = copy.lines[i];
        if (BeginsComponent(line)) {
            RemoveComponent(copy.lines, i);
        } else if (IsOneOf(line, {"RRULE", "RDATE", "EXDATE", "EXRULE", "RECURRENCE-ID", "UID"})) {
            Remove(line);
        }
    }
    return {series.timeZones, SeriesLines::Text(copy)};
}

std::vector<CalendarDate> NextDates(const ToDoText& series, std::size_t most) {
    std::vector<CalendarDate> dates;
    ReadSeries read(series);
    if (!read.clock) return dates;
    SeriesDates walk(read.lines, *read.master, *read.clock);
    while (dates.size() < most) {
        const std::optional<SeriesDate> next = walk.Next();
        std::optional<CalendarDate> date;
        if (next) date = read.clock->DateAt(next->wall);
        if (!date) break;
        dates.push_back(*date);
    }
    return dates;
}

std::vector<Override> OverridesOf(const ToDoText& series) {
    SeriesLines lines(series.text);
    CalendarClock clock;
    clock.SetZones(series.timeZones);
    std::vector<Override> overrides;
    for (const SeriesPart& part : lines.Parts()) {
        const SeriesLine* id = part.Find("RECURRENCE-ID");
        if (!id) continue;
        Override found{clock.Read(id->line), SeriesLines::Text(part), {}};
        EntryReader reader(found.text);
        if (Entry toDo; reader.Next(toDo)) {
            const ToDoFields fields = DeriveToDo(toDo.lines, Dialect::Calendar20, {}, clock);
            found.description = fields.description;
            found.isCompleted = fields.isCompleted;
        }
        overrides.push_back(std::move(found));
    }
    std::stable_sort(overrides.begin(), overrides.end(),
                     [](const Override& left, const Override& right) {
                         if (!left.date || !right.date) return !left.date && right.date;
                         return left.date->moment < right.date->moment;
                     });
    return overrides;
}

}  // namespace orvo
