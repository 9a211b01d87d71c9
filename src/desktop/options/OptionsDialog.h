// The dialog of all options.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <orvoshare/options/DesktopOptions.h>

class QWidget;

namespace orvo::desktop {

// Shows the options, which change where the user agrees; the caller keeps them. The password, the
// language, the sound of reminders and whether backups of `store` are made by themselves are kept
// here.
// Returns:  true where the user has agreed.
bool EditOptions(QWidget* parent, COrvoDesktopOptions& options, const std::string& store);

}  // namespace orvo::desktop
