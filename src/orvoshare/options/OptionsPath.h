// The file that a path of the options names.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <platform/text/CString.h>

namespace orvo {

// The user's own file, in his directory.
constexpr const char* kUserFileName = "xtrauser.dat";

// The path as the file system takes it: in UTF-8, with a slash for each backslash. A trail byte is
// no backslash.
std::string FilePathOf(const CString& path);

}  // namespace orvo
