// How the widgets draw a line of text.
// SPDX-License-Identifier: MIT
#include <libraries/orvoui/TextLine.h>

namespace orvo {

void DrawTextLine(CDC& dc, const CString& text, const CRect& place, COLORREF colour, UINT flags,
                  const CFont& font) {
    if (place.IsRectEmpty()) return;
    const CFont fontBefore = dc.SelectFont(font);
    const COLORREF colourBefore = dc.SetTextColor(colour);
    const int groundBefore = dc.SetBkMode(TRANSPARENT);
    dc.DrawText(text, place, flags);
    dc.SetBkMode(groundBefore);
    dc.SetTextColor(colourBefore);
    dc.SelectFont(fontBefore);
}

}  // namespace orvo
