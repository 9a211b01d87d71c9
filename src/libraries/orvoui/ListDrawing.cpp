// Drawing in the cells of a list: texts, the mark of a pop-up cell, pictures.
// SPDX-License-Identifier: MIT
#include <contracts/ListWidget.h>
#include <libraries/orvoui/TextLine.h>

namespace orvo {

namespace {

// The mark is a triangle that points down; its lines are 7, 5, 3 and 1 pixels wide.
constexpr int kMarkWidth = 7;
constexpr int kMarkHeight = 4;
constexpr int kMarkGap = 2;
constexpr int kLeastTextWidth = 10;

COLORREF TextColour(int colourId) {
    COLORREF colour = 0;
    OUIGetColors(colourId, &colour, nullptr, nullptr, nullptr);
    return colour;
}

CRect TextPlace(const CRect& cell) {
    CRect place = cell;
    place.DeflateRect(kCellTextOffset, 0);
    return place;
}

void DrawPopupMark(CDC& dc, CPoint place, COLORREF colour) {
    for (int line = 0; line < kMarkHeight; ++line) {
        const int y = place.y + line;
        dc.FillSolidRect({place.x + line, y, place.x + kMarkWidth - line, y + 1}, colour);
    }
}

}  // namespace

void OUIDrawCellText(CDC* dc, const char* text, RECT* rect, int colourId, int, UINT textFlags) {
    DrawTextLine(*dc, text, TextPlace(*rect), TextColour(colourId), textFlags);
}

void OUIDrawPopupCellText(CDC* dc, const char* text, RECT* rect, int colourId, int,
                          UINT textFlags) {
    const COLORREF colour = TextColour(colourId);
    CRect place = TextPlace(*rect);
    if (place.Width() >= kLeastTextWidth + kMarkGap + kMarkWidth && place.Height() >= kMarkHeight) {
        place.right -= kMarkWidth;
        DrawPopupMark(*dc, {place.right, place.top + (place.Height() - kMarkHeight) / 2}, colour);
        place.right -= kMarkGap;
    }
    DrawTextLine(*dc, text, place, colour, textFlags);
}

void OUIDrawBitmapTransparent(CDC* dc, CBitmap* bitmap, int x, int y, COLORREF key) {
    dc->DrawBitmap({x, y}, *bitmap, key);
}

void OUIReplaceBitmapColor(CDC*, CBitmap* bitmap, COLORREF from, COLORREF to) {
    bitmap->ReplaceColor(from, to);
}

CFont* OUIGetListFont() {
    static CFont font;
    return &font;
}

}  // namespace orvo
