// Pointer shapes.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <platform/Export.h>
#include <platform/window/pictures/CBitmap.h>

namespace orvo {

// A standard shape by its number, or a picture. A cursor lives as long as anybody may show it.
struct Cursor {
    int standard = 0;  // IDC_*, 0 for a picture
    CBitmap picture;
    COLORREF clear = 0;  // the colour of the pixels that aren't drawn
    CPoint hotSpot;
};
using HCURSOR = const Cursor*;

constexpr int IDC_ARROW = 32512;
constexpr int IDC_IBEAM = 32513;
constexpr int IDC_WAIT = 32514;
constexpr int IDC_SIZEWE = 32644;
constexpr int IDC_HAND = 32649;

// Returns:  the shape of that number, or null; it lives as long as the process.
ORVO_API HCURSOR LoadStandardCursor(int number);

// The cursor of that number from the resources in reach; it lives as long as the process.
// Returns:  null where there is none.
ORVO_API HCURSOR LoadCursor(unsigned number);

// Shows the shape from now on.
// Returns:  the one shown before.
ORVO_API HCURSOR SetCursor(HCURSOR cursor);
ORVO_API HCURSOR GetCursor();

// Shows the waiting shape while it lives.
class ORVO_API CWaitCursor {
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

private:
    HCURSOR m_before;
};

}  // namespace orvo
