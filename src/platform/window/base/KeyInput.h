// What keys and characters of the user's become: messages, the same from every window system.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/window/base/Messages.h>

namespace orvo {

struct HeldKeys {
    bool alt = false;
    bool control = false;
};

// A key went down: WM_KEYDOWN, or with Alt WM_SYSKEYDOWN. A key that stands for a control
// character, as a letter does with Ctrl, is followed by its WM_CHAR, unless PreTranslateMessage
// took it.
// Returns:  false where it was taken.
ORVO_API bool HandleKeyDown(HWND window, UINT key, HeldKeys held);
ORVO_API void HandleKeyUp(HWND window, UINT key, HeldKeys held);

// A character was entered: WM_CHAR with the code point under UTF-8, else once for each byte that
// it has in the system's code page.
ORVO_API void HandleCharacter(HWND window, char32_t character);

}  // namespace orvo
