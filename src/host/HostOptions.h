// The desktop options that both hosts have in common, and where they are kept.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <orvoshare/options/DesktopOptions.h>

namespace orvo {

// The user's own file lies beside the settings file, whatever the data directory is; what
// COrvoDesktopOptions holds in memory only lies in the section "Orvo" of the settings.
// The guard of private entries holds in doubt. Where a password is set, a user's file that isn't
// there, can't be read, or isn't of its form counts as one that requires it; settings that can't be
// read hide private entries. `warn` gets one line about a damaged file.
// As long as none is kept the work week begins as the user's country has it.
// Requires: where options are changed, a SettingsLock lives from before the load until after the
//           save.
COrvoDesktopOptions LoadHostOptions(const std::function<void(const std::string&)>& warn);

// Returns:  what went wrong where the user's file can't be kept, in one line, with the settings
//           left alone; else nothing. Settings that can't be written are reported as
//           contracts/Settings.h says.
std::string SaveHostOptions(COrvoDesktopOptions& options);

}  // namespace orvo
