// What becomes of a to-do that repeats when it is completed.
// SPDX-License-Identifier: MIT
#pragma once

namespace orvo {

class CToDoRecord;

// The rule of a table (CToDoTable::SetSeries), as rules of dates are the business of calendars and
// not of the store.
class ToDoSeries {
public:
    virtual ~ToDoSeries() = default;

    // Completes the present date of a stored record that repeats: a completed to-do of its own is
    // added for it, with that completion date (maxDate() for none), and the record moves to its
    // next date.
    // Returns:  0 with `isOver` false; 0 with `isOver` true and nothing changed where this date is
    //           the last one, so that the record itself is to be completed; else a StoreStatus.
    virtual long CompleteOnce(CToDoRecord& record, long completionDate, bool& isOver) = 0;
};

}  // namespace orvo
