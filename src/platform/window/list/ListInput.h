// What keys and mouse buttons mean to a list: steps on its rows, selection and focus.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/window/list/ListPeer.h>

namespace orvo {

// How a row is gone to.
struct ListGesture {
    bool extends = false;   // Shift: selects from the anchor to the row
    bool keeps = false;     // Ctrl: leaves the other rows' selection alone
    bool isSingle = false;  // the list allows one selected row
};

void SelectOnly(ListPeer& list, int first, int last);

// The row to which a key goes from the focus; -1 for a key that goes nowhere.
int RowForKey(const ListPeer& list, UINT key);

// Returns:  false for a key that the list has no use for.
bool HandleListKey(ListPeer& list, UINT key, const ListGesture& gesture);

// A press on a row, or on none (-1). A row that is selected stays so, and the others with it,
// until the button comes up: it may be the start of a drag. Nothing is scrolled, so that a double
// click meets the same row twice.
// Returns:  true where the row is to be the only selected one when the button comes up.
bool HandleListPress(ListPeer& list, int row, const ListGesture& gesture);
void HandleListRightPress(ListPeer& list, int row, const ListGesture& gesture);

}  // namespace orvo
