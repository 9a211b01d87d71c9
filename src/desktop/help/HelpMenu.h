// The menu Help.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

namespace orvo::desktop {

// Adds the menu to the bar of the window, behind the menus that are there.
void AddHelpMenu(QMainWindow& window);

}  // namespace orvo::desktop
