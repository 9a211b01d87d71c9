// The pictures of the buttons that choose a view.
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

#include <desktop/views/ViewKind.h>

namespace orvo::desktop {

// Drawn anew for each size and in the palette's present colours, so that it is always sharp.
QIcon IconOf(ViewKind kind);

}  // namespace orvo::desktop
