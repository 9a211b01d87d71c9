// How well a colour can be read on another.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include <platform/window/pictures/Contrast.h>

namespace orvo {

namespace {

double LinearPart(int part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(COLORREF colour) {
    return 0.2126 * LinearPart(GetRValue(colour)) + 0.7152 * LinearPart(GetGValue(colour)) +
           0.0722 * LinearPart(GetBValue(colour));
}

}  // namespace

double Contrast(COLORREF one, COLORREF other) {
    const double first = Luminance(one);
    const double second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

COLORREF Opposite(COLORREF ground) {
    constexpr COLORREF kBlack = RGB(0, 0, 0);
    constexpr COLORREF kWhite = RGB(255, 255, 255);
    return Contrast(kBlack, ground) > Contrast(kWhite, ground) ? kBlack : kWhite;
}

COLORREF MixColours(COLORREF from, COLORREF to, int eighths) {
    const auto mix = [eighths](int first, int second) {
        return static_cast<unsigned>(first + (second - first) * eighths / 8);
    };
    return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
               mix(GetBValue(from), GetBValue(to)));
}

COLORREF Readable(COLORREF colour, COLORREF end, COLORREF ground, double contrast) {
    int eighths = 0;
    while (eighths < 8 && Contrast(MixColours(colour, end, eighths), ground) < contrast) {
        ++eighths;
    }
    return MixColours(colour, end, eighths);
}

}  // namespace orvo
