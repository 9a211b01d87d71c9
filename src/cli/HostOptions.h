// The desktop options of this program, and where it keeps them.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/options/DesktopOptions.h>

namespace orvo::cli {

// The user's own file lies beside the settings file, whatever the data directory is; what
// COrvoDesktopOptions holds in memory only lies in the section "Orvo" of the settings.
// Requires: a SettingsLock lives, from before the load until after the save of a change.
// A user's file that is damaged is told on standard error, and gives the defaults.
COrvoDesktopOptions LoadHostOptions();
void SaveHostOptions(COrvoDesktopOptions& options);

}  // namespace orvo::cli
