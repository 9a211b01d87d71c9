// How messages come in: from the queue, and from the user through a window system.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/window/base/Messages.h>

namespace orvo {

// Handles posted messages, those posted by handlers too, until none is left.
// Returns:  how many were handled.
ORVO_API int PumpMessages();

// Handles a message of the user's at once, after PreTranslateMessage of the window and those above.
// Returns:  false when PreTranslateMessage took it away.
ORVO_API bool HandleInput(const MSG& message);

// The focus has gone to that window, or to none of ours: WM_KILLFOCUS and WM_SETFOCUS are sent.
ORVO_API void NoteFocus(HWND window);

}  // namespace orvo
