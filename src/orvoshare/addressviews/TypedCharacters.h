// Which of the characters that are typed into a view belong to text.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/window/base/Messages.h>

namespace orvo {

// Follows the characters of WM_CHAR one by one: on a page of double bytes a trail byte is
// recognised by the lead byte before it, and may look like anything by itself.
class ORVO_API TypedCharacters {
public:
    // True for a printable character, one of the two bytes of one, and backspace.
    bool IsForText(UINT character);

private:
    UINT m_leadByte = 0;  // typed, and waiting for its trail byte
};

}  // namespace orvo
