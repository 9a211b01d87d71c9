// CMenuItemLocater: finds items of a menu by a number of their own instead of by their position.
// SPDX-License-Identifier: MIT
#include <orvoshare/integration/MenuItemLocater.h>

namespace orvo {

int CMenuItemLocater::InitializeMenuPositions(HMENU) {
    return 0;
}

int CMenuItemLocater::SetMenuLocator(HMENU menu, unsigned int position, unsigned long locator) {
    const MENUITEMINFO info{kMenuItemInfoSize, MIIM_DATA, locator};
    return SetMenuItemInfoA(menu, position, 1, &info);
}

int CMenuItemLocater::GetMenuPosition(HMENU menu, unsigned long locator, unsigned int* position) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        const auto item = static_cast<unsigned int>(i);
        MENUITEMINFO info{kMenuItemInfoSize, MIIM_DATA, 0};
        if (!GetMenuItemInfoA(menu, item, 1, &info) || info.dwItemData != locator) continue;
        *position = item;
        return 1;
    }
    return 0;
}

int CMenuItemLocater::GetMenuItemPosition(HMENU menu, unsigned long submenu, unsigned long locator,
                                          unsigned int* position) {
    unsigned int place = 0;
    if (!GetMenuPosition(menu, submenu, &place)) return 0;
    return GetMenuPosition(GetSubMenu(menu, static_cast<int>(place)), locator, position);
}

}  // namespace orvo
