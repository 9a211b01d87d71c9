// The resource handle of the calling thread.
// SPDX-License-Identifier: MIT
#include <platform/module/ResourceHandle.h>

namespace orvo {
namespace {

thread_local HINSTANCE resourceHandle = nullptr;

}  // namespace

HINSTANCE AfxGetResourceHandle() {
    return resourceHandle;
}

void AfxSetResourceHandle(HINSTANCE module) {
    resourceHandle = module;
}

}  // namespace orvo
