// The resource scope: where the resources of a module are in reach. Fulfilled by
// libraries/language.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/module/ExtensionModule.h>

namespace orvo {

// While it lives, the resource handle of the calling thread is that of the record; then it is again
// what it was. Scopes nest. A local object, which ends on the thread on which it began.
class ORVO_API CDllResourceHandler {
public:
    explicit CDllResourceHandler(AFX_EXTENSION_MODULE record);
    ~CDllResourceHandler();
    CDllResourceHandler(const CDllResourceHandler&) = delete;
    CDllResourceHandler& operator=(const CDllResourceHandler&) = delete;

private:
    HINSTANCE m_former;
};

}  // namespace orvo
