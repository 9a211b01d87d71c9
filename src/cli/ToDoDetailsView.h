// What a to-do's calendar lines say, as it is printed.
// SPDX-License-Identifier: MIT
#pragma once

#include <cli/Output.h>
#include <contracts/RecordStore.h>

namespace orvo::cli {

// Adds the rule by which it repeats, the start, the percent that is done, the UID of the to-do that
// it is part of, and the reminders.
// Fails:    CommandError where its source can't be read.
void AddToDoDetails(const CToDoRecord& record, Json& json);

// Prints the same for people, with the dates of its series that differ from the others.
void PrintToDoDetails(const CToDoRecord& record);

}  // namespace orvo::cli
