// The desktop options that both hosts have in common, and where they are kept.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <orvoshare/options/DesktopOptions.h>

namespace orvo {

// The user's own file lies beside the settings file, whatever the data directory is; what
// COrvoDesktopOptions holds in memory only lies in the section "Orvo" of the settings.
// Requires: where options are changed, a SettingsLock lives from before the load until after the
//           save.
// A user's file that is damaged gives the defaults; `warn` is told why in one line.
COrvoDesktopOptions LoadHostOptions(const std::function<void(const std::string&)>& warn);
void SaveHostOptions(COrvoDesktopOptions& options);

}  // namespace orvo
