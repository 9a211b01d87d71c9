// How names and texts are spelled in the settings file.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/text/CString.h>

namespace orvo {

// In the file, text is UTF-8. These stand for what a line couldn't hold: \\ \n \r \t, and \xHH for
// one byte of the system's code page: a control character, a blank at the start or the end, and a
// byte that the way to UTF-8 and back would change, because it stands for no character or shares
// its character with another code. In a name, so do [ ] = ; and #.
// Each text has one spelling, and no two have the same.
std::string SpellName(std::string_view text);
std::string SpellText(std::string_view text);

// The text of a spelling. Takes any bytes: a backslash that begins none of the above is itself, and
// broken UTF-8 gives U+FFFD.
CString ReadSpelling(std::string_view spelling);

}  // namespace orvo
