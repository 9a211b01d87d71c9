// Texts in the system's code page as UTF-8, and back.
// SPDX-License-Identifier: MIT
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>

namespace orvo {

std::string ToUtf8(const CString& text) {
    std::string utf8;
    CodePage::System().ToUtf8(text.View(), utf8);
    return utf8;
}

CString SystemText(std::string_view utf8) {
    CString text;
    CodePage::System().FromUtf8(utf8, text.Bytes());
    return text;
}

}  // namespace orvo
