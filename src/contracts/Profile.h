// The user's preferences of the interface: texts and numbers by section and key.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

// The interface preferences lie in the user's settings file (docs/settings.md), apart from the
// application's settings of contracts/Settings.h: an equal section name there is another section.
// What another process writes is seen by the next call. Text is in the system's code page; names
// are compared byte by byte. May be used from several threads at once.

// Returns:  the text of the key; `defaultText` where the key isn't there or a name is null; an
//           empty text for a null default.
// Owner:    the caller.
ORVO_API CString OUIGetProfileString(const char* section, const char* key, const char* defaultText);

// Returns:  the number of the key, a negative one modulo 2^32; `defaultValue` where the key isn't
//           there, a name is null, or the text is no whole decimal number that an int holds.
ORVO_API unsigned OUIGetProfileInt(const char* section, const char* key, int defaultValue);

// Each keeps a value in the file before it returns; a value that is there already leaves the file
// untouched.
// Returns:  non-zero on success.
// Fails:    with 0 for a null section, key or text; where the file can't be written, which is
//           reported in one line on standard error. The file then stays as it was.
ORVO_API int OUIWriteProfileString(const char* section, const char* key, const char* value);
ORVO_API int OUIWriteProfileInt(const char* section, const char* key, int value);

}  // namespace orvo
