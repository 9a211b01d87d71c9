// Keys, buttons and characters of Qt's events as messages have them.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <Qt>

#include <platform/window/base/Messages.h>

namespace orvo {

// Returns:  VK_* or the capital or digit, 0 for a key that messages don't name.
UINT VirtualKeyOf(int key);

// VK_SHIFT, VK_CONTROL or VK_MENU; no modifier for any other key.
Qt::KeyboardModifier ModifierOf(UINT key);

// MK_*
UINT FlagsOf(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons);

// WM_CHAR for each character of the text, but those that are control characters.
void HandleText(HWND window, const QString& text);

}  // namespace orvo
