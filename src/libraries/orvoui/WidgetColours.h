// What the widgets do with colours besides asking for them.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/window/Geometry.h>

namespace orvo {

// The colour that lies so many eighths of the way from one to the other.
COLORREF MixColours(COLORREF from, COLORREF to, int eighths);

}  // namespace orvo
