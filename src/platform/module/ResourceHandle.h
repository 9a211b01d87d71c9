// The resource handle of the calling thread.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/module/Module.h>

namespace orvo {

// The module in which the calling thread looks for resources before the chain of extension modules
// is searched; null at first.
ORVO_API HINSTANCE AfxGetResourceHandle();
ORVO_API void AfxSetResourceHandle(HINSTANCE module);

}  // namespace orvo
