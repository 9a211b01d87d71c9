// The colours of the widgets, which follow those of the desktop.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>

#include <contracts/ListWidget.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/pictures/Contrast.h>

namespace orvo {

namespace {

constexpr COLORREF kRed = RGB(208, 0, 0);

// The purest red that can be read on the window's ground. Black or white can on every ground.
COLORREF OverdueColour() {
    const COLORREF ground = GetSysColor(COLOR_WINDOW);
    return Readable(kRed, Opposite(ground), ground, kTextContrast);
}

COLORREF IconColour() {
    const COLORREF ground = GetSysColor(COLOR_WINDOW);
    return Readable(GetSysColor(COLOR_HIGHLIGHT), Opposite(ground), ground, kMarkContrast);
}

template <int Id>
COLORREF SystemColour() {
    return GetSysColor(Id);
}

struct ColourRow {
    int id;
    COLORREF (*text)();
    int ground;
    int frame;
};
constexpr ColourRow kColours[] = {
    {kTextColour, SystemColour<COLOR_WINDOWTEXT>, COLOR_WINDOW, COLOR_BTNSHADOW},
    {kSelectedTextColour, SystemColour<COLOR_HIGHLIGHTTEXT>, COLOR_HIGHLIGHT, COLOR_HIGHLIGHT},
    {kOverdueColour, OverdueColour, COLOR_WINDOW, COLOR_BTNSHADOW},
    {kIconColour, IconColour, COLOR_WINDOW, COLOR_BTNSHADOW},
};

const ColourRow& RowOf(int id) {
    const auto* found = std::find_if(std::begin(kColours), std::end(kColours),
                                     [id](const ColourRow& row) { return row.id == id; });
    return found == std::end(kColours) ? kColours[0] : *found;
}

}  // namespace

void OUIGetColors(int colourId, COLORREF* first, COLORREF* second, COLORREF* third,
                  COLORREF* fourth) {
    const ColourRow& row = RowOf(colourId);
    if (first) *first = row.text();
    if (second) *second = GetSysColor(row.ground);
    if (third) *third = GetSysColor(row.frame);
    if (fourth) *fourth = row.text();
}

}  // namespace orvo
