// The dialog of all options.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/options/DesktopOptions.h>

class QWidget;

namespace orvo::desktop {

// Shows the options, which change where the user agrees; the caller keeps them. The password, the
// language and the sound of reminders are kept here.
// Returns:  true where the user has agreed.
bool EditOptions(QWidget* parent, COrvoDesktopOptions& options);

}  // namespace orvo::desktop
