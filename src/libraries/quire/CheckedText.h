// Text between the system's code page, in which records give it, and UTF-8, in which they keep it.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <platform/text/CString.h>

namespace orvo {

// Gives:  false where some of the bytes stand for no character of the page.
bool SystemToUtf8(const CString& text, std::string& utf8);

CString Utf8ToSystem(std::string_view utf8);

}  // namespace orvo
