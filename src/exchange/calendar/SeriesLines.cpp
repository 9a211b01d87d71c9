// The lines of a series.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <exchange/calendar/RuleDates.h>
#include <exchange/calendar/SeriesLines.h>
#include <exchange/lines/LineEdits.h>

namespace orvo {

const SeriesLine* SeriesPart::Find(std::string_view name) const {
    const auto found = std::find_if(lines.begin(), lines.end(),
                                    [&](const SeriesLine& line) { return line.Is(name); });
    return found == lines.end() ? nullptr : &*found;
}

const SeriesLine* AnchorOf(const SeriesPart& part) {
    const SeriesLine* start = part.Find("DTSTART");
    const SeriesLine* due = part.Find("DUE");
    const SeriesLine* rule = part.Find("RRULE");
    if (!start || !due || !rule) return start ? start : due;
    const auto follows = [&](const SeriesLine& line) {
        const std::optional<WallTime> time = ParseWallTime(line.line.value);
        return time && RuleDates(rule->line.value, *time).Next() == time->seconds;
    };
    return !follows(*start) && follows(*due) ? due : start;
}

SeriesLines::SeriesLines(std::string_view text) : m_reader(text) {
    ContentLine line;
    std::size_t depth = 0;
    while (m_reader.Next(line)) {
        const bool begins = EqualsIgnoringCase(line.name, "BEGIN");
        const bool ends = EqualsIgnoringCase(line.name, "END");
        if (m_parts.empty() || (begins && depth == 0)) m_parts.emplace_back();
        if (begins) ++depth;
        m_parts.back().lines.push_back({line, depth > 1});
        if (ends && depth > 0) --depth;
    }
}

SeriesPart* SeriesLines::Master() {
    const auto found = std::find_if(m_parts.begin(), m_parts.end(), [](const SeriesPart& part) {
        return part.Find("RECURRENCE-ID") == nullptr;
    });
    return found == m_parts.end() ? nullptr : &*found;
}

std::string SeriesLines::Text(const SeriesPart& part) {
    std::string text;
    for (const SeriesLine& line : part.lines) {
        text += line.replacement ? *line.replacement : std::string(line.line.source);
    }
    return text;
}

std::string SeriesLines::Text() const {
    std::string text;
    for (const SeriesPart& part : m_parts) text += Text(part);
    return text;
}

void Replace(SeriesLine& line, std::string_view value) {
    const ContentLine& old = line.line;
    const std::string_view head = old.text.substr(0, old.text.size() - old.value.size() - 1);
    line.replacement = FormatLine(head, value, Dialect::Calendar20, LineEndOf(old.source));
}

void Add(SeriesPart& part, std::string_view head, std::string_view value) {
    for (std::size_t i = part.lines.size(); i-- > 0;) {
        SeriesLine& line = part.lines[i];
        if (line.isNested || line.Is("END")) continue;
        if (!line.replacement) line.replacement = std::string(line.line.source);
        *line.replacement +=
            FormatLine(head, value, Dialect::Calendar20, LineEndOf(line.line.source));
        return;
    }
}

void Remove(SeriesLine& line) {
    line.replacement.emplace();
}

}  // namespace orvo
