// What becomes of the to-dos of a table that repeat when they are completed.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/RecordStore.h>

namespace orvo {

// From now on a stored to-do that repeats moves to its next date when it is completed, and a
// completed one of its own is added for the date before (CToDoTable::SetSeries). Both in one
// transaction.
void CompleteSeriesByDates(CToDoTable& table);

}  // namespace orvo
