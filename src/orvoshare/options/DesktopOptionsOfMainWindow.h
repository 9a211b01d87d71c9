// The desktop options of the host, asked for through its main window.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/options/DesktopOptions.h>
#include <platform/Export.h>

namespace orvo {

// The host's object, which it keeps; null where there is no main window or it doesn't answer.
ORVO_API COrvoDesktopOptions* AskMainWindowForOptions();

// The host's verify flag; 0 where it has no options to ask for.
ORVO_API int GetVerifyDatFileOption();

}  // namespace orvo
