// The settings of the application: texts and numbers by section and key.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>

namespace orvo {

// The settings lie in the user's settings file (docs/settings.md), apart from the interface
// preferences of contracts/Profile.h: an equal section name there is another section. What another
// process writes is seen by the next call. Text is in the system's code page; names are compared
// byte by byte. May be used from several threads at once.

// Copies the text of a key to `buffer`, ended by a zero byte, and cut where it is longer than the
// buffer; no character is split. Where the key isn't there, `defaultText` is copied instead, and
// null counts as an empty text.
// Returns:  non-zero on success, the default included.
// Requires: `size` is the size of the buffer in bytes; after the call it is the bytes written, the
//           zero byte included.
// Fails:    for a null section or key, with the default in the buffer; for a null buffer or a size
//           of 0, with `size` 0.
ORVO_API int CmnGetProfileString(const char* section, const char* key, char* buffer,
                                 unsigned long& size, const char* defaultText);

// Sets `value` to the number of a key, or to `defaultValue` where the key isn't there or its text
// is no whole decimal number that an int holds.
// Returns:  non-zero on success, the default included.
// Fails:    for a null section or key, with the default in `value`; for a null `value`.
ORVO_API int CmnGetProfileInt(const char* section, const char* key, int* value, int defaultValue);

// Each keeps a value in the file before it returns; a value that is there already leaves the file
// untouched.
// Returns:  non-zero on success.
// Fails:    for a null section, key or text; where the file can't be written, which is reported in
//           one line on standard error. The file then stays as it was.
ORVO_API int CmnWriteProfileString(const char* section, const char* key, const char* text);
ORVO_API int CmnWriteProfileInt(const char* section, const char* key, int value);

}  // namespace orvo
