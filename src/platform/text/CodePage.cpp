// Code pages: what all of them do by way of UTF-16, and cutting text.
// SPDX-License-Identifier: MIT
#include <platform/text/Charset.h>
#include <platform/text/CodePage.h>
#include <platform/text/Utf8.h>

namespace orvo {

namespace {

std::u16string& ReusedUtf16() {
    thread_local std::u16string utf16;
    return utf16;
}

}  // namespace

void CodePage::ToUtf8(std::string_view text, std::string& utf8) const {
    if (AsciiLength(text) == text.size()) {
        utf8 = text;
        return;
    }
    std::u16string& utf16 = ReusedUtf16();
    ToUtf16(text, utf16);
    Utf16ToUtf8(utf16, utf8);
}

void CodePage::FromUtf8(std::string_view utf8, std::string& text) const {
    if (AsciiLength(utf8) == utf8.size()) {
        text = utf8;
        return;
    }
    std::u16string& utf16 = ReusedUtf16();
    Utf8ToUtf16(utf8, utf16);
    FromUtf16(utf16, text);
}

std::size_t CutLength(const CodePage& page, std::string_view text, std::size_t limit,
                      bool keepSplit) {
    if (text.size() <= limit) return text.size();
    std::size_t length = 0;
    while (length < limit) {
        const std::size_t next = length + page.CharacterLength(text.substr(length));
        if (next > limit && !keepSplit) break;
        length = next;
    }
    return length;
}

}  // namespace orvo
