// Texts in the system's code page as UTF-8, and back.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/text/CString.h>

namespace orvo {

// As CodePage does it: bytes that stand for no character become U+FFFD, and characters that the
// page lacks become its substitutes.
std::string ToUtf8(const CString& text);
CString SystemText(std::string_view utf8);

}  // namespace orvo
