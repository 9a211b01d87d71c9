// The question before a to-do that repeats is completed.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <contracts/RecordStore.h>

namespace orvo::desktop {

// Asks where the record repeats, as to complete it ends the whole series.
// Returns:  false where the user doesn't want that, or where the store can't say, which is reported
//           to the user.
bool MayComplete(QWidget* parent, const CToDoRecord& record);

}  // namespace orvo::desktop
