// A to-do as a text of iCalendar, for edits of what its record has no field for.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <contracts/RecordStore.h>
#include <exchange/lines/LineEdits.h>

namespace orvo {

struct ToDoText {
    std::vector<SharedText> timeZones;  // texts of VTIMEZONE components
    // A VTODO of iCalendar 2.0 in UTF-8, and behind it those of the same series that have a
    // RECURRENCE-ID, each with a line end behind its last line.
    std::string text;
};

// The to-do as an export would write it now.
// Returns:  here and below 0, or why not as a StoreStatus.
long ReadToDoText(const CToDoRecord& record, ToDoText& result);

// Makes a record, with its source that then was modified now, what the text says, in one change of
// the store where it is stored; its category stays, and its due date where the text has that as a
// day.
// Fails:    with Refused where the text isn't a whole to-do.
long WriteToDoText(CToDoRecord& record, const ToDoText& edited);

// Reads and writes a record in one transaction, as the store has it then; it stays as it is where
// `edit` returns false.
long EditToDoText(CToDoRecord& record, const std::function<bool(ToDoText&)>& edit);

// Runs `edit` on the lines of the to-do itself, not of the others of its series; those that it
// doesn't touch stay byte for byte.
// Returns:  false where nothing was edited, as in a text that isn't a whole to-do.
bool EditLines(ToDoText& toDo,
               const std::function<void(const LineList& lines, LineEdits& edits)>& edit);

}  // namespace orvo
