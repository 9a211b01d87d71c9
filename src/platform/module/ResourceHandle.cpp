// The resource handle of the calling thread.
// SPDX-License-Identifier: MIT
#include <platform/module/ResourceHandle.h>

namespace orvo {
namespace {

thread_local HINSTANCE g_resourceHandle = nullptr;

}  // namespace

HINSTANCE AfxGetResourceHandle() {
    return g_resourceHandle;
}

void AfxSetResourceHandle(HINSTANCE module) {
    g_resourceHandle = module;
}

}  // namespace orvo
