// The trash: deleted entries, which come back from there or go for good.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <desktop/store/StoreSession.h>
#include <host/Disclosure.h>

namespace orvo::desktop {

// Private entries are shown only where the user lets them be seen.
// Returns:  true where the user has changed something.
bool ShowTrash(QWidget* parent, StoreSession& session, Disclosure disclosure);

// True where the dialog would show an entry.
bool HoldsTrash(StoreSession& session, Disclosure disclosure);

}  // namespace orvo::desktop
