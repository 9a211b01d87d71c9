// Which to-do another one is a part of, and how much of it is done.
// SPDX-License-Identifier: MIT
#include <string>

#include <exchange/calendar/ToDoParent.h>

namespace orvo {
namespace {

// Without a kind the relation is that to a parent (RFC 5545, 3.8.4.5).
bool NamesParent(const ContentLine& line) {
    if (!EqualsIgnoringCase(line.name, "RELATED-TO")) return false;
    const std::string_view kind = FindParameter(line.parameters, "RELTYPE");
    return kind.empty() || EqualsIgnoringCase(kind, "PARENT");
}

bool IsPercent(const ContentLine& line) {
    return EqualsIgnoringCase(line.name, "PERCENT-COMPLETE");
}

// Gives the first of those lines the value, or the to-do a new one, and removes the others; all of
// them for an empty value.
bool SetLine(ToDoText& toDo, bool (*isOne)(const ContentLine&), std::string_view name,
             const std::string& value) {
    return EditLines(toDo, [&](const LineList& lines, LineEdits& edits) {
        bool isSet = value.empty();
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (!isOne(lines[i])) continue;
            const auto place = static_cast<std::ptrdiff_t>(i);
            if (isSet) {
                edits.At(place).isRemoved = true;
            } else if (edits.ValueOf(place) != value) {
                edits.At(place).value = value;
            }
            isSet = true;
        }
        if (!isSet) edits.Add(name).value = value;
    });
}

}  // namespace

bool WithParent(ToDoText& toDo, std::string_view uid) {
    return SetLine(toDo, NamesParent, "RELATED-TO", Escape(uid, Dialect::Calendar20));
}

bool WithPercent(ToDoText& toDo, int percent) {
    return SetLine(toDo, IsPercent, "PERCENT-COMPLETE",
                   percent == 0 ? std::string() : std::to_string(percent));
}

}  // namespace orvo
