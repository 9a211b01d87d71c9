// The widget library's day picker. Fulfilled by libraries/orvoui.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/time/CTime.h>

namespace orvo {

// Lets the user choose a day, beginning at the given one; the owner is the main window.
// Returns:  non-zero, and the chosen day in `day`; 0, with `day` untouched, on cancel.
ORVO_API int DisplayOrvoUIDayPickerDlg(CTime& day);

}  // namespace orvo
