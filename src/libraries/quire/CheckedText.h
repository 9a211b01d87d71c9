// Text of the system's code page as UTF-8, where it is one.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/text/CString.h>

namespace orvo {

// Returns:  false where some of the bytes stand for no character of the page.
bool SystemToUtf8(const CString& text, std::string& utf8);

}  // namespace orvo
