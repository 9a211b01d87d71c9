// The window that shows how far a store of an older version has come to this one.
// SPDX-License-Identifier: MIT
#pragma once

#include <libraries/quire/StoreProgress.h>

namespace orvo::desktop {

// Shows a window once the work takes longer than a moment; it goes with the last copy of what is
// returned. The work can't be ended.
// Requires: a QApplication.
StoreProgress ShowMigration();

}  // namespace orvo::desktop
