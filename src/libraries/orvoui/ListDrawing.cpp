// Drawing in the cells of a list: texts, the mark of a pop-up cell, pictures.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/ListWidget.h>
#include <libraries/orvoui/CellLook.h>
#include <libraries/orvoui/TextLine.h>
#include <platform/window/base/WindowSystem.h>

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
    const bool isPlaceholder = CellLookInForce::Get().isPlaceholder && colourId == kTextColour;
    return isPlaceholder ? GetSysColor(COLOR_PLACEHOLDERTEXT) : colour;
}

// A selected row has another ground than the one on which the overdue colour can be read.
void DrawOverdueGround(CDC& dc, const CString& text, const CRect& place, UINT textFlags) {
    constexpr int kMargin = 2;
    COLORREF ground = 0;
    OUIGetColors(kOverdueColour, nullptr, &ground, nullptr, nullptr);
    const CFont before = dc.SelectFont(*OUIGetListFont());
    const int width = std::min(dc.GetTextExtent(text).cx, place.Width());
    dc.SelectFont(before);
    const int left = (textFlags & DT_RIGHT) != 0 ? place.right - width : place.left;
    dc.FillSolidRect({left - kMargin, place.top + 1, left + width + kMargin, place.bottom - 1},
                     ground);
}

// The colour that stands between two others where the pixel stands between black and white.
COLORREF GreyAs(COLORREF pixel, COLORREF black, COLORREF white) {
    const auto part = [](int grey, int first, int last) {
        return static_cast<unsigned>(first + (last - first) * grey / 255);
    };
    return RGB(part(GetRValue(pixel), GetRValue(black), GetRValue(white)),
               part(GetGValue(pixel), GetGValue(black), GetGValue(white)),
               part(GetBValue(pixel), GetBValue(black), GetBValue(white)));
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
    const CRect place = TextPlace(*rect);
    if (colourId == kOverdueColour && !place.IsRectEmpty()) {
        DrawOverdueGround(*dc, text, place, textFlags);
    }
    DrawTextLine(*dc, text, place, TextColour(colourId), textFlags);
}

void OUIDrawPopupCellText(CDC* dc, const char* text, RECT* rect, int colourId, int,
                          UINT textFlags) {
    const COLORREF colour = TextColour(colourId);
    CRect place = TextPlace(*rect);
    if (place.Width() >= kLeastTextWidth + kMarkGap + kMarkWidth && place.Height() >= kMarkHeight) {
        place.right -= kMarkWidth;
        // Its room stays free, so that no text moves when it comes.
        if (CellLookInForce::Get().showsPopupMark) {
            const int top = place.top + (place.Height() - kMarkHeight) / 2;
            DrawPopupMark(*dc, {place.right, top}, colour);
        }
        place.right -= kMarkGap;
    }
    DrawTextLine(*dc, text, place, colour, textFlags);
}

void OUIDrawBitmapTransparent(CDC* dc, CBitmap* bitmap, int x, int y, COLORREF key) {
    dc->DrawBitmap({x, y}, *bitmap, key);
}

CBitmap OUIMarkInColours(const CBitmap& mark, COLORREF key, int colourId) {
    COLORREF text = 0;
    COLORREF ground = 0;
    OUIGetColors(colourId, &text, &ground, nullptr, nullptr);
    CBitmap shown = mark;
    for (int line = 0; line < shown.Size().cy; ++line) {
        for (int column = 0; column < shown.Size().cx; ++column) {
            const COLORREF pixel = shown.GetPixel({column, line});
            if (pixel != key) shown.SetPixel({column, line}, GreyAs(pixel, text, ground));
        }
    }
    return shown;
}

void OUIReplaceBitmapColor(CDC*, CBitmap* bitmap, COLORREF from, COLORREF to) {
    bitmap->ReplaceColor(from, to);
}

CFont* OUIGetListFont() {
    static CFont font;
    return &font;
}

}  // namespace orvo
