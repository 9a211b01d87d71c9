// The colours of the windows.
// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/CommandLine.h>

namespace orvo::desktop {

// Colours::Desktop leaves them as the user's desktop has them.
// Requires: the QApplication is there.
void SetColours(Colours colours);

}  // namespace orvo::desktop
