// Finding a resource that isn't a string, in the modules in reach.
// SPDX-License-Identifier: MIT
#include <platform/module/FindResource.h>
#include <platform/module/ModuleChain.h>
#include <platform/module/ResourceHandle.h>

namespace orvo {

HINSTANCE FindResourceModule(ResourceKind kind, unsigned number) {
    const HINSTANCE first = AfxGetResourceHandle();
    if (first && !first->FindResource(kind, number).empty()) return first;
    return ModuleChain::Instance().FindResourceModule(kind, number);
}

std::string_view FindResourceText(ResourceKind kind, unsigned number) {
    const HINSTANCE module = FindResourceModule(kind, number);
    return module ? module->FindResource(kind, number) : std::string_view();
}

}  // namespace orvo
