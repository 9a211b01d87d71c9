// The resource scope: where the resources of a module are in reach.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <platform/module/ResourceHandle.h>

namespace orvo {

CDllResourceHandler::CDllResourceHandler(AFX_EXTENSION_MODULE record)
    : m_former(AfxGetResourceHandle()) {
    AfxSetResourceHandle(record.resource);
}

CDllResourceHandler::~CDllResourceHandler() {
    AfxSetResourceHandle(m_former);
}

}  // namespace orvo
