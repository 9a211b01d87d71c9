// What a to-do of a calendar file says in the terms of a to-do record.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>

#include <exchange/calendar/ToDoFields.h>
#include <exchange/lines/LineEdits.h>

namespace orvo {
namespace {

constexpr std::array<std::string_view, kToDoProperties> kNames{
    "SUMMARY", "DESCRIPTION", "PRIORITY", "STATUS", "PERCENT-COMPLETE", "COMPLETED",
    "DUE",     "DTSTART",     "DURATION", "CLASS",  "X-ORVO-ARCHIVED",  "UID"};

constexpr std::string_view kOldCalendar = "BEGIN:VCALENDAR\r\nVERSION:1.0\r\n";
constexpr std::string_view kOldCalendarEnd = "END:VCALENDAR\r\n";

constexpr std::array<int, 10> kPriorities{3, 1, 2, 2, 3, 3, 3, 4, 4, 5};
constexpr std::array<std::string_view, 5> kCalendarPriorities{"1", "3", "5", "7", "9"};

// The date as a record keeps it; nothing where it can't.
std::optional<long> RecordDate(const std::optional<CalendarDate>& date) {
    if (!date || date->moment < 0 || date->moment >= kMaxDate) return std::nullopt;
    // The store keeps what the local clock shows, which is less than the moment when it is set
    // back.
    const std::optional<CivilTime> civil = CivilOfMoment(date->moment);
    if (!civil) return std::nullopt;
    return static_cast<long>(std::max<std::int64_t>(MomentOfCivil(*civil), 0));
}

bool SaysCompleted(std::string_view status, std::string_view percent, bool hasDate) {
    status = Trimmed(status);
    if (EqualsIgnoringCase(status, "COMPLETED")) return true;
    for (const std::string_view open : {"NEEDS-ACTION", "NEEDS ACTION", "IN-PROCESS"}) {
        if (EqualsIgnoringCase(status, open)) return false;
    }
    return hasDate || Trimmed(percent) == "100";
}

}  // namespace

std::string_view NameOf(ToDoProperty property) {
    return kNames[static_cast<std::size_t>(property)];
}

int PriorityOfCalendar(std::string_view value) {
    value = Trimmed(value);
    int number = 0;
    std::from_chars(value.data(), value.data() + value.size(), number);
    return number < 0 || number > 9 ? 3 : kPriorities[static_cast<std::size_t>(number)];
}

std::string_view CalendarPriority(int priority) {
    return kCalendarPriorities[static_cast<std::size_t>(priority) - 1];
}

ToDoFields DeriveToDo(const LineList& lines, Dialect dialect, std::string_view charset,
                      CalendarClock& clock) {
    ToDoFields fields;
    ValueDecoder decoder(lines, charset);
    fields.lineOf.fill(kNoLine);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view name = lines[i].name;
        if (name.empty()) continue;
        if (EqualsIgnoringCase(name, "CATEGORIES")) {
            AppendCategories(lines, i, dialect, decoder, fields.categories);
        }
        const auto* const known =
            std::find_if(kNames.begin(), kNames.end(),
                         [&](std::string_view n) { return EqualsIgnoringCase(n, name); });
        if (known == kNames.end()) continue;
        std::ptrdiff_t& place = fields.lineOf[static_cast<std::size_t>(known - kNames.begin())];
        if (place == kNoLine) place = static_cast<std::ptrdiff_t>(i);
    }
    const auto lineOf = [&](ToDoProperty property) {
        const std::ptrdiff_t line = fields.Line(property);
        return line == kNoLine ? std::nullopt
                               : std::optional(lines[static_cast<std::size_t>(line)]);
    };
    std::string storage;
    const auto textOf = [&](ToDoProperty property) {
        std::string text;
        const std::optional<ContentLine> line = lineOf(property);
        if (line) Unescape(decoder.Decode(*line, storage), dialect, text);
        return text;
    };
    const auto dateOf = [&](ToDoProperty property) {
        const std::optional<ContentLine> line = lineOf(property);
        return line ? clock.Read(*line) : std::nullopt;
    };

    fields.note = textOf(ToDoProperty::Description);
    fields.description = lineOf(ToDoProperty::Summary) ? textOf(ToDoProperty::Summary)
                                                       : std::string(FirstLineOf(fields.note));
    fields.priority = PriorityOfCalendar(textOf(ToDoProperty::Priority));
    const auto completed = dateOf(ToDoProperty::Completed);
    fields.isCompleted =
        SaysCompleted(textOf(ToDoProperty::Status), textOf(ToDoProperty::PercentComplete),
                      lineOf(ToDoProperty::Completed).has_value());
    if (fields.isCompleted) fields.completionDate = RecordDate(completed).value_or(kMaxDate);
    std::optional<CalendarDate> due = dateOf(ToDoProperty::Due);
    const std::optional<ContentLine> start = lineOf(ToDoProperty::Start);
    const std::optional<ContentLine> duration = lineOf(ToDoProperty::Duration);
    if (!lineOf(ToDoProperty::Due) && start && duration) due = clock.ReadEnd(*start, *duration);
    fields.dueDate = RecordDate(due).value_or(kMaxDate);
    if (due) fields.due = *due;
    if (const auto begin = dateOf(ToDoProperty::Start); begin && begin->moment >= 0) {
        fields.start = CivilOfMoment(begin->moment);
        const bool isDay = begin->form == CalendarDate::Form::Day;
        if (isDay && fields.start) {
            fields.start = CivilTime{fields.start->year, fields.start->month, fields.start->day};
        }
    }
    fields.isPrivate = IsPrivateClass(textOf(ToDoProperty::Class));
    fields.isArchived = IsTrue(textOf(ToDoProperty::Archived));
    return fields;
}

ToDoParts MakeToDoParts(const Entry& toDo, Dialect dialect,
                        const std::vector<SharedText>& timeZones) {
    ToDoParts parts{timeZones, std::string(toDo.source)};
    if (dialect != Dialect::Calendar10) return parts;
    if (!parts.rest.ends_with('\n') && !parts.rest.ends_with('\r')) parts.rest += "\r\n";
    parts.rest.append(kOldCalendarEnd);
    return parts;
}

SharedText OpeningOf(std::string_view zoneLine) {
    return SharedText(std::string(kOldCalendar).append(zoneLine));
}

std::string_view ZoneLineOf(std::string_view opening) {
    if (!opening.starts_with(kOldCalendar)) return {};
    return opening.substr(kOldCalendar.size());
}

bool ReadToDoSource(const ToDoParts& parts, EntryReader& reader, ToDoSource& result) {
    const std::string_view rest = parts.rest;
    const std::string_view first =
        parts.shared.empty() ? rest : std::string_view(parts.shared.front().Text());
    const bool isOld = first.starts_with(kOldCalendar);
    result.dialect = isOld ? Dialect::Calendar10 : Dialect::Calendar20;
    result.timeZones.clear();
    result.instances = {};
    for (const SharedText& text : parts.shared) {
        if (text.Text() != kOldCalendar) result.timeZones.push_back(text);
    }
    // A store of an older version has the whole source in the rest.
    const char* opening = rest.data();
    const auto takeOpening = [&](const char* end) {
        const std::string_view text(opening, static_cast<std::size_t>(end - opening));
        if (!text.empty() && text != kOldCalendar) result.timeZones.emplace_back(std::string(text));
    };
    while (reader.Next(result.toDo)) {
        const Entry& entry = result.toDo;
        const bool isZone = entry.kind == EntryKind::TimeZone;
        if (entry.kind != EntryKind::ToDo && !isZone) continue;
        takeOpening(entry.source.data());
        if (!isZone) {
            const char* const end = entry.source.data() + entry.source.size();
            if (!isOld) result.instances = rest.substr(static_cast<std::size_t>(end - rest.data()));
            return entry.complete;
        }
        result.timeZones.emplace_back(std::string(entry.source));
        opening = entry.source.data() + entry.source.size();
    }
    return false;
}

}  // namespace orvo
