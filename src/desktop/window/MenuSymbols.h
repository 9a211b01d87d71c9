// The pictures of the commands in the menus.
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>

namespace orvo::desktop {

// Gives each command that has one its picture, by the command's key.
void ShowSymbols(const QMenuBar& menus);

}  // namespace orvo::desktop
