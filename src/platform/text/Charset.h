// Text of files: named character sets, and a guess where none is named.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

// True where the bytes are well-formed UTF-8 (no overlong form, no surrogate, nothing above
// U+10FFFF).
ORVO_API bool IsValidUtf8(std::string_view bytes);

// Decodes bytes of a character set that is named as in MIME ("SHIFT_JIS", "iso-8859-1"; case does
// not count).
// Returns:  false, with `utf8` untouched, for an unknown name, or where the bytes are not all of
//           that set.
ORVO_API bool DecodeCharset(std::string_view name, std::string_view bytes, std::string& utf8);

// Encodes UTF-8 text; false, with `bytes` untouched, for an unknown name, for text that is no
// UTF-8, or where a character has no place in the set.
ORVO_API bool EncodeCharset(std::string_view name, std::string_view utf8, std::string& bytes);

// True for bytes of a legacy set: they aren't UTF-8, or switch to Japanese by an escape.
ORVO_API bool IsLegacyText(std::string_view bytes);

// The MIME name of the legacy character set of bytes: the one that they themselves point to, where
// they are enough; "Shift_JIS" where they read as Japanese; else the 8-bit set of the system's
// language, "windows-1252" for most. The guess never fails.
ORVO_API std::string_view GuessLegacyCharset(std::string_view bytes);

// Decodes bytes as a set that GuessLegacyCharset names, without `charset` as the one that it names
// for them; a byte that stands for nothing becomes the code point of its value, so that nothing
// goes missing. Bytes that aren't of a set of several bytes are read as "windows-1252".
ORVO_API std::string DecodeLegacy(std::string_view bytes);
ORVO_API std::string DecodeLegacy(std::string_view charset, std::string_view bytes);

// If `bytes` begins with a byte order mark, or is UTF-16 without one, returns true and the text as
// UTF-8 without the mark.
ORVO_API bool DecodeMarked(std::string_view bytes, std::string& utf8);

}  // namespace orvo
