// CString::LoadString: the text of a number, from the resources in reach.
// SPDX-License-Identifier: MIT
#include <platform/module/ModuleChain.h>
#include <platform/module/ResourceHandle.h>
#include <platform/text/CString.h>
#include <platform/text/CodePage.h>

namespace orvo {

int CString::LoadString(unsigned id) {
    const HINSTANCE first = AfxGetResourceHandle();
    std::string utf8;
    const bool found =
        (first && first->FindString(id, utf8)) || ModuleChain::Instance().FindString(id, utf8);
    CodePage::System().FromUtf8(utf8, m_text);
    return found ? 1 : 0;
}

}  // namespace orvo
