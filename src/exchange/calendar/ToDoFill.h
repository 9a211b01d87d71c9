// New to-do records of what calendars say.
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <contracts/RecordStore.h>
#include <exchange/calendar/ToDoFields.h>
#include <exchange/lines/Origin.h>

namespace orvo {

// Sets the fields of a new record to those of a to-do, with the dates and the category of its
// origin.
// Returns:  0, or why not as a StoreStatus.
long FillToDo(const ToDoFields& fields, const Origin& origin, CToDoRecord& record);

// What a new record is to say of its source, which is `text` and says `fields`.
ToDoDetails DetailsOf(std::string_view text, const ToDoFields& fields);

// Where a record from a file, which is to replace `row`, has a field as `base` has it, what was
// known of the entry before, it gets that of the row: the file has left it as it was, so that what
// was edited here stays. That it is completed, and when, is one.
// Returns:  0, or why not as a StoreStatus.
long KeepEdits(const CToDoRecord& base, const CToDoRecord& row, CToDoRecord& record);

}  // namespace orvo
