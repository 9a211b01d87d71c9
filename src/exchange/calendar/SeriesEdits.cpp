// Edits on when a to-do begins and how it comes again.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <exchange/calendar/SeriesDates.h>
#include <exchange/calendar/SeriesEdits.h>
#include <exchange/calendar/SeriesLines.h>

namespace orvo {
namespace {

// The rule with an UNTIL that is of the form of the dates.
std::string WithUntil(std::string_view rule, SeriesClock& clock) {
    const std::string_view part = RulePart(rule, "UNTIL");
    const std::optional<WallTime> until = ParseWallTime(part);
    std::string text(rule);
    const WallTime& start = clock.Start();
    if (!until || until->form != WallTime::Form::Day || start.form == WallTime::Form::Day) {
        return text;
    }
    const WallSeconds end = until->seconds + kSecondsOfDay - 1;
    WallTime value{end, start.form};
    if (clock.IsZoned()) value = {clock.UtcAt(end), WallTime::Form::Utc};
    const auto place = static_cast<std::size_t>(part.data() - rule.data());
    return text.replace(place, part.size(), FormatWallTime(value));
}

void SetLine(SeriesPart& part, std::string_view name, std::string_view value) {
    const auto found = std::find_if(part.lines.begin(), part.lines.end(),
                                    [&](const SeriesLine& line) { return line.Is(name); });
    if (found == part.lines.end()) {
        if (!value.empty()) Add(part, name, value);
    } else if (value.empty()) {
        Remove(*found);
    } else {
        Replace(*found, value);
    }
}

// A to-do has a duration only with a start; its due date takes that place.
void RemoveStart(SeriesPart& part, const ToDoText& toDo) {
    const SeriesLine* start = part.Find("DTSTART");
    const SeriesLine* duration = part.Find("DURATION");
    if (!start) return;
    const ContentLine line = start->line;
    CalendarClock clock;
    clock.SetZones(toDo.timeZones);
    std::optional<CalendarDate> end;
    if (duration && !part.Find("DUE")) end = clock.ReadEnd(line, duration->line);
    SetLine(part, "DTSTART", {});
    SetLine(part, "DURATION", {});
    if (!end) return;
    std::string head = "DUE";
    if (!line.parameters.empty()) head.append(";").append(line.parameters);
    Add(part, head, clock.Format(end->moment, *end));
}

}  // namespace

bool SetRule(ToDoText& toDo, std::string_view rule) {
    SeriesLines lines(toDo.text);
    SeriesPart* master = lines.Master();
    const SeriesLine* anchor = master ? AnchorOf(*master) : nullptr;
    std::optional<SeriesClock> clock;
    if (anchor) clock = SeriesClock::Of(anchor->line, toDo.timeZones);
    if (!master || (!rule.empty() && !clock)) return false;
    SeriesLine* present = nullptr;
    for (SeriesLine& line : master->lines) {
        const bool isRule = line.Is("RRULE");
        if (isRule && !present && !rule.empty()) {
            present = &line;
        } else if (isRule || line.Is("RDATE") || line.Is("EXDATE") || line.Is("EXRULE")) {
            Remove(line);
        }
    }
    if (present) {
        Replace(*present, WithUntil(rule, *clock));
    } else if (!rule.empty()) {
        Add(*master, "RRULE", WithUntil(rule, *clock));
    }
    toDo.text = rule.empty() ? SeriesLines::Text(*master) : lines.Text();
    return true;
}

void SetStartDay(ToDoText& toDo, const std::optional<CivilTime>& day) {
    SeriesLines lines(toDo.text);
    SeriesPart* master = lines.Master();
    if (!master) return;
    const SeriesLine* start = master->Find("DTSTART");
    const SeriesLine* due = master->Find("DUE");
    if (!day) {
        RemoveStart(*master, toDo);
        toDo.text = lines.Text();
        return;
    }
    const WallSeconds first = DaysOfCivil(day->year, day->month, day->day) * kSecondsOfDay;
    // A new start is of the same form as the due date, as calendars want it.
    const SeriesLine* like = start ? start : due;
    const std::optional<WallTime> was = like ? ParseWallTime(like->line.value) : std::nullopt;
    WallTime value{first, was ? was->form : WallTime::Form::Day};
    if (start && was) value.seconds += was->seconds - DayOf(was->seconds) * kSecondsOfDay;
    if (!start && value.form == WallTime::Form::Utc) {
        value.seconds = MomentOfCivil({day->year, day->month, day->day});
    }
    std::string head = "DTSTART";
    if (!was) {
        head += ";VALUE=DATE";
    } else if (!like->line.parameters.empty()) {
        head.append(";").append(like->line.parameters);
    }
    if (start && was) {
        SetLine(*master, "DTSTART", FormatWallTime(value));
    } else {
        SetLine(*master, "DTSTART", {});
        Add(*master, head, FormatWallTime(value));
    }
    toDo.text = lines.Text();
}

}  // namespace orvo
