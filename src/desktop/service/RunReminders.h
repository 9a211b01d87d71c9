// The program as the service that reminds without a window.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace orvo::desktop {

// Runs until somebody ends it; does nothing where the service for that store runs already. `store`
// is the path of the store's file. With `hasOwnNotes` reminders come in windows of its own where
// there is no notification service. Only then a display is asked for; it starts the program anew so
// once it is needed.
// Returns:  the program's exit code.
int RunReminders(const std::string& store, bool hasOwnNotes, int count, char** arguments);

}  // namespace orvo::desktop
