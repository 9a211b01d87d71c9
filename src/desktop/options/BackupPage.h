// The page of the dialog of options that is about backups.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <desktop/options/OptionsPage.h>

namespace orvo::desktop {

// For the store that is open. The page is the caller's.
OptionsPage* MakeBackupPage(const std::string& store);

}  // namespace orvo::desktop
