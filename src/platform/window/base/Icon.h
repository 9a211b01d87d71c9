// Icons: small pictures whose ground stays clear.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/window/pictures/CBitmap.h>

namespace orvo {

struct Icon {
    CBitmap picture;
    COLORREF clear = 0;  // the colour of the pixels that aren't drawn
};

// Takes the icon of that number from the resources in reach.
// Returns:  false, with `icon` untouched, where there is none.
ORVO_API bool LoadIcon(unsigned number, Icon& icon);

}  // namespace orvo
