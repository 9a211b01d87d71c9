// Pictures in the text form XPM 3, as paint programs write it.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include <platform/window/pictures/CBitmap.h>

namespace orvo {

struct XpmPicture {
    CBitmap pixels;
    COLORREF clear = 0;             // no drawn pixel has it; those of the colour None do
    std::optional<CPoint> hotSpot;  // the point of a cursor, where the picture names one
};

// Reads a picture whose colours are "#RRGGBB", "#RRRRGGGGBBBB", None, or one of black, white, red,
// green, blue, yellow, cyan and magenta, each at its full strength. An extension of the name
// "outline" is the picture's. The text may hold any bytes.
// Returns:  nothing where it isn't such a picture, or is wider or higher than 4096 pixels.
std::optional<XpmPicture> ReadXpmPicture(std::string_view text);

}  // namespace orvo
