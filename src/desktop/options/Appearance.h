// The colours of the windows.
// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/options/DesktopPreferences.h>

namespace orvo::desktop {

// From now on; Colours::Desktop are those of the user's desktop.
// Requires: the QApplication is there.
void SetColours(Colours colours);

}  // namespace orvo::desktop
