// The dialog in which the user adds, renames and removes categories and labels.
// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/store/StoreSession.h>

class QWidget;

namespace orvo::desktop {

// Every change is kept at once, as a step of the session's history.
void EditNames(QWidget* parent, StoreSession& session);

}  // namespace orvo::desktop
