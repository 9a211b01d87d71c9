// The texts of a record that the views share: its phones and custom fields.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/RecordStore.h>
#include <platform/text/CString.h>

namespace orvo {

// Adds every line of `lines` to `text`, with `start` before it and a line feed behind it.
void AddLines(const CString& lines, const char* start, CString& text);

// Labels whole, or their first line with blanks for tabs, so that they break no line.
enum class Labels { Whole, InOneLine };

// Adds a line for each phone that has number and label: the label, a tab, the number. Further lines
// of a number begin with the tab.
// Returns:  false where there is none.
bool AddPhoneLines(const CAddressRecord& record, const CAddressTable& table, Labels labels,
                   CString& text);

// Adds the custom fields that aren't empty, each with its label, a colon, and its lines, which
// begin with a tab. With `isSetOff` an empty line stands before the first of them.
void AddCustomLines(const CAddressRecord& record, const CAddressTable& table, Labels labels,
                    bool isSetOff, CString& text);

}  // namespace orvo
