// What a to-do of a calendar file says in the terms of a to-do record, and which lines say it.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <contracts/Dates.h>
#include <contracts/RecordStore.h>
#include <exchange/calendar/CalendarClock.h>
#include <exchange/cards/CardFields.h>
#include <exchange/lines/EntryReader.h>

namespace orvo {

// The properties of a VTODO that fill fields, and those that writing needs. The first line of each
// counts.
enum class ToDoProperty : std::uint8_t {
    Summary,
    Description,
    Priority,
    Status,
    PercentComplete,
    Completed,
    Due,
    Start,
    Duration,
    Class,
    Archived,
    Uid,
};
constexpr std::size_t kToDoProperties = static_cast<std::size_t>(ToDoProperty::Uid) + 1;

std::string_view NameOf(ToDoProperty property);

struct ToDoFields {
    std::string description;
    std::string note;
    int priority = 3;
    bool isCompleted = false;
    long completionDate = kMaxDate;
    long dueDate = kMaxDate;
    std::vector<ListedCategory> categories;
    bool isPrivate = false;
    bool isArchived = false;

    std::array<std::ptrdiff_t, kToDoProperties> lineOf{};
    CalendarDate due;                // the form of DUE
    std::optional<CivilTime> start;  // as the local clock shows it; of a day its first second

    std::ptrdiff_t Line(ToDoProperty property) const {
        return lineOf[static_cast<std::size_t>(property)];
    }
};

// `clock` has the zones of the to-do; `charset` is its legacy set, empty where the lines themselves
// decide.
ToDoFields DeriveToDo(const LineList& lines, Dialect dialect, std::string_view charset,
                      CalendarClock& clock);

// Calendar priorities 0 to 9 stand for a record's 1 to 5.
int PriorityOfCalendar(std::string_view value);
std::string_view CalendarPriority(int priority);

// The source of a to-do record in its two parts: what all to-dos of a calendar may have, which is
// the opening of a calendar of vCalendar and the zones, each for itself; and the VTODO.
struct ToDoParts {
    std::vector<SharedText> shared;
    std::string rest;
};

// `timeZones` are texts of VTIMEZONE components, before which the calendar's opening stands where
// the dialect is Calendar10.
ToDoParts MakeToDoParts(const Entry& toDo, Dialect dialect,
                        const std::vector<SharedText>& timeZones);

// The opening of a calendar of vCalendar: with its TZ line, which may be empty.
SharedText OpeningOf(std::string_view zoneLine);
// The TZ line of an opening; empty where it has none and for other texts.
std::string_view ZoneLineOf(std::string_view opening);

struct ToDoSource {
    Dialect dialect = Dialect::Calendar20;
    std::vector<SharedText> timeZones;  // as in the parts, but for an opening that says nothing
    Entry toDo;
    // The other to-dos of its series, each with a RECURRENCE-ID: dates that differ from the rule.
    std::string_view instances;
};
// Returns:  false where the parts hold no to-do. The entry is valid as long as the reader, which
//           reads the rest of the parts.
bool ReadToDoSource(const ToDoParts& parts, EntryReader& reader, ToDoSource& result);

}  // namespace orvo
