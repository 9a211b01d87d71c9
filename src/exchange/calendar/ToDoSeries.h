// To-dos that come again.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/RecordStore.h>

namespace orvo {

// Sets `isRepeating` to whether the record's kept source has it come again, by a rule or at dates.
// To complete such a record ends the whole series.
// Returns:  0, or the status with which the store refuses the source.
long ReadIsRepeating(const CToDoRecord& record, bool& isRepeating);

}  // namespace orvo
