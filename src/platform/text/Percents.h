// Bytes written as '%' and two hexadecimal digits, as in addresses of the web (RFC 3986).
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

// The value of a hexadecimal digit; -1 for any other character.
ORVO_API int HexDigit(char c);

// The text with those bytes. A '%' without two digits stays as it is; `isWhole`, which may be null,
// becomes whether there is none.
ORVO_API std::string DecodePercents(std::string_view text, bool* isWhole = nullptr);

}  // namespace orvo
