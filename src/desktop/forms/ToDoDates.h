// When a to-do begins and how it comes again, in its form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QGridLayout>

#include <contracts/RecordStore.h>
#include <desktop/forms/DateField.h>
#include <desktop/forms/RecordSaver.h>

namespace orvo::desktop {

// Adds a field for the start, the one for the due date, and one for the repetition, below each
// other, in that row of the grid. Those of start and repetition are saved here. What repeats has
// one of the two dates: where the last one is taken away, or there is none, the due date is set.
void AddToDoDates(RecordSaver<CToDoTable, CToDoRecord>& saver, CToDoRecord& record, DateField& due,
                  const CivilTime& today, QGridLayout& grid, int row);

}  // namespace orvo::desktop
