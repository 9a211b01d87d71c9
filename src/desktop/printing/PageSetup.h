// Paper, orientation and margins of what is printed, as the user set them last.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPageLayout>

namespace orvo::desktop {

// What is saved and makes no sense counts as not saved; then it is the paper of the user's country
// with middling margins.
QPageLayout LoadPageLayout();

// Returns:  false where the settings can't be written, which is reported on standard error.
bool SavePageLayout(const QPageLayout& layout);

}  // namespace orvo::desktop
