// Character tests and small text functions over the system's code page.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>

namespace orvo {

// Non-zero where the byte begins a character of more than one byte in the system's code page; under
// UTF-8 too.
ORVO_API int IsDBCSLeadByte(unsigned char byte);

// Non-zero where the character can be printed. `character` is a byte, or lead byte * 256 + trail
// byte; under UTF-8 it is a code point.
ORVO_API int _ismbcprint(unsigned int character);

// Compares two texts exactly, character by character by their codes: -1, 0 or 1.
ORVO_API int _mbscmp(const unsigned char* left, const unsigned char* right);

// Copies at most `count` - 1 bytes and ends them with a zero byte. On a double-byte page the cut is
// by byte; under UTF-8 no character is split. A `count` below 1 copies nothing.
// Returns:  `target`.
ORVO_API char* lstrcpyn(char* target, const char* source, int count);

}  // namespace orvo
