// How the widgets draw a line of text.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/ListWidget.h>

namespace orvo {

// Draws nothing where the place is empty, and leaves the device context as it was.
void DrawTextLine(CDC& dc, const CString& text, const CRect& place, COLORREF colour, UINT flags,
                  const CFont& font = *OUIGetListFont());

// The bytes of the text that fill a line of that width: up to behind a blank where there is one,
// else up to the sign of a mail address, else as many characters as fit, and at least one.
std::size_t LengthOfLine(CDC& dc, std::string_view text, int width);

}  // namespace orvo
