// How the widgets draw a line of text.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/ListWidget.h>

namespace orvo {

// Draws nothing where the place is empty, and leaves the device context as it was.
void DrawTextLine(CDC& dc, const CString& text, const CRect& place, COLORREF colour, UINT flags,
                  const CFont& font = *OUIGetListFont());

}  // namespace orvo
