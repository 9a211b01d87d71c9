// The heading of a list: which columns are shown, in which order and width, kept in the profile.
// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include <contracts/ListWidget.h>
#include <platform/Export.h>

namespace orvo {

// The columns of the list as text; empty for a heading without columns.
ORVO_API CString HeadingOf(COrvoUIListViewCtrl& list);

// Shows the columns that the text names, whatever its bytes, and keeps the widths of the hidden.
// Returns:  1; 0, and no column is shown, for a text that begins with no number above 0.
ORVO_API int ShowHeading(COrvoUIListViewCtrl& list, const CString& text);

// Hides all columns, as those that are read from a heading are shown behind what stands there.
ORVO_API void HideColumns(COrvoUIListViewCtrl& list);

// Shows columns at their own widths.
ORVO_API void ShowColumns(COrvoUIListViewCtrl& list, std::span<const int> ids);

// Shows the heading that is saved under section and key, or where none is the default columns.
// Returns:  1 where a heading was set up; 0 for a null section and as ShowHeading does.
ORVO_API int ReadHeading(COrvoUIListViewCtrl& list, const char* section, const char* key,
                         std::span<const int> defaultIds);

// Saves the heading.
// Returns:  non-zero on success; 0, and what was saved stays, for a null section or a heading
//           without columns.
ORVO_API int WriteHeading(COrvoUIListViewCtrl& list, const char* section, const char* key);

}  // namespace orvo
