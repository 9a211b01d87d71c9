// The version of the library.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>

namespace orvo {

// The version of the library that is running, such as "0.1.0".
ORVO_API const char* OrvoShareVersion();

}  // namespace orvo
