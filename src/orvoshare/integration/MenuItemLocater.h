// CMenuItemLocater: finds items of a menu by a number of their own instead of by their position.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/window/dialogs/CMenu.h>

namespace orvo {

// The number, the locator, is the item's data. A locator of 0 is that of every item without one. To
// be used from the thread of the windows only.
class ORVO_API CMenuItemLocater {
public:
    virtual ~CMenuItemLocater() = default;

    // Where a derived class gives the items of a menu their locators.
    // Returns:  0 here.
    virtual int InitializeMenuPositions(HMENU menu);

    // Returns:  0 where the menu has no item at that position.
    int SetMenuLocator(HMENU menu, unsigned int position, unsigned long locator);

    // Sets `position` to the first item of the menu that has the locator; items of submenus don't
    // count.
    // Returns:  1 when found.
    // Fails:    with 0, and `position` untouched.
    int GetMenuPosition(HMENU menu, unsigned long locator, unsigned int* position);

    // The same for an item of the submenu whose item in `menu` has the locator `submenu`.
    int GetMenuItemPosition(HMENU menu, unsigned long submenu, unsigned long locator,
                            unsigned int* position);
};

}  // namespace orvo
