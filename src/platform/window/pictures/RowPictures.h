// Pictures that a host paints beside the texts of a list, in place of those of an image list.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/window/base/Geometry.h>
#include <platform/window/base/Messages.h>

namespace orvo {

class CDC;

// A picture of the window system in force, which paints it at whatever size it is given.
class Picture {
public:
    virtual ~Picture() = default;
};

// The image of a row whose content is withheld.
constexpr int kMaskedPicture = 2;

class RowPictures {
public:
    virtual ~RowPictures() = default;

    // Paints the picture of the row of that data word. `image` is its number in the image lists of
    // the control.
    virtual void Draw(CDC& dc, const CRect& place, DWORD data, int image) = 0;
};

}  // namespace orvo
