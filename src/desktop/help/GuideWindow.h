// The user's guide in a window of its own.
// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/help/HelpWindow.h>

namespace orvo::desktop {

// Opens the guide that is installed with the program, in its language where there is one: in the
// folder that ORVO_GUIDE_DIR names, else in share/orvo-desktop of the program's prefix. Where there
// is none the window says so.
HelpWindow* NewGuideWindow(QWidget& parent);

}  // namespace orvo::desktop
