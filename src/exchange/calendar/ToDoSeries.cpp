// To-dos that come again.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <exchange/calendar/ToDoFields.h>
#include <exchange/calendar/ToDoSeries.h>

namespace orvo {

long ReadIsRepeating(const CToDoRecord& record, bool& isRepeating) {
    ToDoParts parts;
    if (const long status = record.GetSourceParts(parts.shared, parts.rest); status != 0) {
        return status;
    }
    EntryReader reader(parts.rest);
    ToDoSource source;
    const bool hasSource = ReadToDoSource(parts, reader, source);
    const LineList lines = hasSource ? source.toDo.lines : LineList();
    isRepeating = std::any_of(lines.begin(), lines.end(), [](const ContentLine& line) {
        return EqualsIgnoringCase(line.name, "RRULE") || EqualsIgnoringCase(line.name, "RDATE");
    });
    return 0;
}

}  // namespace orvo
