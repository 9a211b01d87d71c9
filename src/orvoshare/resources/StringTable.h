// The module's own texts, by their numbers.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/text/CString.h>

namespace orvo {

constexpr unsigned kStringUnnamed = 9189;

// The text of that number; empty where the table holds none.
CString ModuleString(unsigned number);

}  // namespace orvo
