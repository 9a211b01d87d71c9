// The trash: deleted entries, which come back from there or go for good.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <desktop/Privacy.h>
#include <desktop/StoreSession.h>

namespace orvo::desktop {

// Private entries are shown only where the user lets them be seen.
// Gives:  true where the user has changed something.
bool ShowTrash(QWidget* parent, StoreSession& session, Privacy privacy);

}  // namespace orvo::desktop
