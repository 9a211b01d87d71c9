// Where entries of plug-ins stand in the menus.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>
#include <cstdint>

namespace orvo::desktop {

// Names an action for plug-ins, by one of the numbers of <contracts/Plugin.h>; that of a menu is
// set on its menuAction().
void SetLocator(QAction& action, std::uint32_t locator);

// Adds an entry to the menu that has the locator, before the item with the other one, else at the
// menu's end.
// Returns:  the entry, which is the menu's; null where there is no such menu.
QAction* InsertEntry(QMenuBar& bar, std::uint32_t menu, std::uint32_t before, const QString& text);

}  // namespace orvo::desktop
