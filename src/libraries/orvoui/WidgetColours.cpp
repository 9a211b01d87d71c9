// The colours of the widgets, which follow those of the desktop.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <iterator>

#include <contracts/ListWidget.h>
#include <libraries/orvoui/WidgetColours.h>
#include <platform/window/WindowSystem.h>

namespace orvo {

namespace {

constexpr double kReadableContrast = 4.5;
constexpr COLORREF kRed = RGB(208, 0, 0);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

// Luminance and contrast as the guidelines for accessible web content define them: 0 to 1, and 1
// to 21.
double LinearPart(int part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(COLORREF colour) {
    return 0.2126 * LinearPart(GetRValue(colour)) + 0.7152 * LinearPart(GetGValue(colour)) +
           0.0722 * LinearPart(GetBValue(colour));
}

double Contrast(COLORREF one, COLORREF other) {
    const double first = Luminance(one);
    const double second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

// The purest red that can be read on the window's ground. Black or white can on every ground.
COLORREF OverdueColour() {
    const COLORREF ground = GetSysColor(COLOR_WINDOW);
    const COLORREF end = Contrast(kBlack, ground) > Contrast(kWhite, ground) ? kBlack : kWhite;
    int eighths = 0;
    while (eighths < 8 && Contrast(MixColours(kRed, end, eighths), ground) < kReadableContrast) {
        ++eighths;
    }
    return MixColours(kRed, end, eighths);
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
    {kIconColour, SystemColour<COLOR_HIGHLIGHT>, COLOR_WINDOW, COLOR_BTNSHADOW},
};

const ColourRow& RowOf(int id) {
    const auto* found = std::find_if(std::begin(kColours), std::end(kColours),
                                     [id](const ColourRow& row) { return row.id == id; });
    return found == std::end(kColours) ? kColours[0] : *found;
}

}  // namespace

COLORREF MixColours(COLORREF from, COLORREF to, int eighths) {
    const auto mix = [eighths](int first, int second) {
        return static_cast<unsigned>(first + (second - first) * eighths / 8);
    };
    return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
               mix(GetBValue(from), GetBValue(to)));
}

void OUIGetColors(int colourId, COLORREF* first, COLORREF* second, COLORREF* third,
                  COLORREF* fourth) {
    const ColourRow& row = RowOf(colourId);
    if (first) *first = row.text();
    if (second) *second = GetSysColor(row.ground);
    if (third) *third = GetSysColor(row.frame);
    if (fourth) *fourth = row.text();
}

}  // namespace orvo
