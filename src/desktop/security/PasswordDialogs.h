// The dialogs in which the user gives his password, and chooses another one.
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace orvo::desktop {

// Asks for the password until it is right or the user gives up.
// Returns:  true for the right one, or where none is set.
bool AskForPassword(QWidget* parent);

// Asks for the old password, where there is one, and for a new one twice.
// Returns:  true where the new one is set.
bool ChoosePassword(QWidget* parent);

}  // namespace orvo::desktop
