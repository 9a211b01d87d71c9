// How well a colour can be read on another.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/window/base/Geometry.h>

namespace orvo {

// The least contrast of a text, and of a mark, with its ground.
constexpr double kTextContrast = 4.5;
constexpr double kMarkContrast = 3;

// As the guidelines for accessible web content define it, 1 to 21.
ORVO_API double Contrast(COLORREF one, COLORREF other);

// Black or white, whichever can be read better on the ground.
ORVO_API COLORREF Opposite(COLORREF ground);

// The colour that many eighths of the way from one to another.
ORVO_API COLORREF MixColours(COLORREF from, COLORREF to, int eighths);

// The first colour on the way from `colour` to `end`, by eighths, that has that contrast with the
// ground; the end where none has.
ORVO_API COLORREF Readable(COLORREF colour, COLORREF end, COLORREF ground, double contrast);

}  // namespace orvo
