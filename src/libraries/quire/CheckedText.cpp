// Text of the system's code page as UTF-8, where it is one.
// SPDX-License-Identifier: MIT
#include "CheckedText.h"

#include <platform/text/Charset.h>
#include <platform/text/CodePage.h>

namespace orvo {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

// A replacement character in converted text stands for a fault of the bytes, unless the bytes are
// its own private code, which comes back the same.
bool IsFaultless(const CodePage& page, std::string_view text) {
    std::string utf8;
    std::string back;
    while (!text.empty()) {
        const std::string_view character = text.substr(0, page.CharacterLength(text));
        page.ToUtf8(character, utf8);
        page.FromUtf8(utf8, back);
        if (utf8 == kReplacement && back != character) {
            return false;
        }
        text.remove_prefix(character.size());
    }
    return true;
}

}  // namespace

bool SystemToUtf8(const CString& text, std::string& utf8) {
    const CodePage& page = CodePage::System();
    if (page.Number() == kUtf8CodePage) {
        utf8 = text.Bytes();
        return IsValidUtf8(utf8);
    }
    page.ToUtf8(text.View(), utf8);
    return utf8.find(kReplacement) == std::string::npos || IsFaultless(page, text.View());
}

}  // namespace orvo
