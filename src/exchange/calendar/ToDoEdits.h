// What must change on the lines of a to-do so that it says what a record says.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <contracts/RecordStore.h>
#include <exchange/calendar/ToDoFields.h>
#include <exchange/cards/TableTexts.h>
#include <exchange/lines/LineEdits.h>

namespace orvo {

// The fields of a record as UTF-8.
struct ToDoValues {
    std::string_view description;  // valid until the record changes
    std::string note;
    int priority = 3;
    bool isCompleted = false;
    long completionDate = kMaxDate;
    long dueDate = kMaxDate;
    int category = kNoCategory;
    bool isPrivate = false;
    bool isArchived = false;

    // Returns:  false where the store can't be read.
    bool Read(const CToDoRecord& record);
};

// All of them must outlive it.
class ToDoEdits {
public:
    ToDoEdits(const ToDoFields& was, const Origin& origin, const ToDoValues& now, Dialect dialect,
              LineEdits& edits)
        : m_was(was), m_origin(origin), m_now(now), m_dialect(dialect), m_edits(edits) {}

    // `clock` has the zones of the to-do.
    void Run(CalendarClock& clock, CategoryNames& categories);

private:
    void EditTexts();
    void EditPriority();
    void EditDue(CalendarClock& clock);
    void EditCompletion(CalendarClock& clock);
    // Writes a value that needs no escapes; an empty one removes the line.
    void Set(ToDoProperty property, std::string_view value);

    const ToDoFields& m_was;
    const Origin& m_origin;  // what the record got with them
    const ToDoValues& m_now;
    Dialect m_dialect;
    LineEdits& m_edits;
};

}  // namespace orvo
