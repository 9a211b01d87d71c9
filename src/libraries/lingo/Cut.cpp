// Cutting text to a length in bytes, and closing a folder's name.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/TextServices.h>
#include <platform/text/CodePage.h>

namespace orvo {

namespace {

void Cut(CString& text, int limit, bool keepSplit) {
    const auto bytes = static_cast<std::size_t>(std::max(limit, 0));
    text.Bytes().resize(CutLength(CodePage::System(), text.View(), bytes, keepSplit));
}

}  // namespace

void LeftAndValidateDec(CString& text, int limit) {
    Cut(text, limit, false);
}

void LeftAndValidateInc(CString& text, int limit) {
    Cut(text, limit, true);
}

void AppendBackslash(CString& text) {
    const bool closed = !text.IsEmpty() && text.ReverseFind('\\') == text.GetLength() - 1;
    if (!closed) text += '\\';
}

}  // namespace orvo
