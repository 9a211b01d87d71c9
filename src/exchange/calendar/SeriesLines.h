// The lines of a series: those of the to-do itself, and of the instances that differ from it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <exchange/lines/ContentLine.h>

namespace orvo {

// One line of a series, and what stands in its place.
struct SeriesLine {
    ContentLine line;
    bool isNested = false;  // in an alarm, or in another component inside the to-do
    std::optional<std::string> replacement{};

    bool Is(std::string_view name) const {
        return !isNested && EqualsIgnoringCase(line.name, name);
    }
};

// One VTODO, from its BEGIN to its END.
struct SeriesPart {
    std::vector<SeriesLine> lines;

    // The first line of that name that isn't nested; null where there is none.
    const SeriesLine* Find(std::string_view name) const;
};

// The line from which a series is counted: its DTSTART, else its DUE; null where it has neither.
// Where only the due date follows the rule it is that: calendars leave open what a start means then
// (RFC 5545, 3.8.5.3).
const SeriesLine* AnchorOf(const SeriesPart& part);

class SeriesLines {
public:
    // The text is of iCalendar 2.0 and must outlive it.
    explicit SeriesLines(std::string_view text);

    // The one without a RECURRENCE-ID; null where there is none.
    SeriesPart* Master();
    const std::vector<SeriesPart>& Parts() const { return m_parts; }

    // The whole with what was replaced; all else byte for byte.
    std::string Text() const;
    static std::string Text(const SeriesPart& part);

private:
    ContentLineReader m_reader;
    std::vector<SeriesPart> m_parts;
};

// Puts another value into a line; name and parameters stay.
void Replace(SeriesLine& line, std::string_view value);
// Adds a line behind those of the to-do itself. The head is name and parameters.
void Add(SeriesPart& part, std::string_view head, std::string_view value);
// Takes a line away.
void Remove(SeriesLine& line);

}  // namespace orvo
