// The one-line texts by which lists and cards name a person, and the cleaning of text for display.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/RecordStore.h>
#include <platform/Export.h>
#include <platform/text/Arrays.h>
#include <platform/text/CString.h>

namespace orvo {

// The text without the blanks, tabs and line ends at its start, cut before its first carriage
// return or tab, and to at most 256 bytes without splitting a character. A line feed inside the
// text doesn't cut.
ORVO_API CString RemoveLeadingSpaces(const CString& source);

// Replaces every tab by four blanks, wherever the tab stands.
ORVO_API void RemoveTabs(CString& text);

// Adds the lines of `text` at the end of `lines`; an empty text adds nothing.
ORVO_API void AppendLines(const CString& text, CStringArray& lines);

// Sets `result` to the person's name in the list form, or to the company where no name is filled
// in. Only the first line of each field counts; a record with neither gives an empty text.
ORVO_API void FormatName(CAddressRecord* record, CString& result);

// Sets `result` to the person's name in the list form. A record without a name gives "-Unnamed-" in
// the module's language where `useUnnamedText` isn't 0, else an empty text, whatever its company.
ORVO_API void GetFormattedName(CAddressRecord* record, CString& result, int useUnnamedText);

}  // namespace orvo
