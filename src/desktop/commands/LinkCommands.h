// Following the links of details.
// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

#include <desktop/commands/CommandContext.h>

namespace orvo::desktop {

// Opens the address: that of an entry by selecting it, one of "mailto:" with the mail program, any
// other with what the desktop has for its scheme. Says so where nothing opens it.
void FollowLink(const CommandContext& context, const QUrl& link);

}  // namespace orvo::desktop
