// Finding a resource that isn't a string, in the modules in reach.
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <platform/Export.h>
#include <platform/module/Module.h>

namespace orvo {

// The module that holds the resource: that of AfxGetResourceHandle, else the first extension module
// that does. Null where none does.
ORVO_API HINSTANCE FindResourceModule(ResourceKind kind, unsigned number);

// The resource of that module, as its file has it; empty where there is none.
// Owner:    the module, for as long as it lives.
ORVO_API std::string_view FindResourceText(ResourceKind kind, unsigned number);

}  // namespace orvo
