// Small steps over UTF-8 text.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

// The code point with which `text` begins, and its length in bytes; for a broken sequence U+FFFD
// and 1, for an empty text 0 and 0.
struct CodePoint {
    char32_t value;
    std::size_t length;
};
ORVO_API CodePoint FirstCodePoint(std::string_view text);

// The number of ASCII bytes with which `text` begins.
ORVO_API std::size_t AsciiLength(std::string_view text);

// A value that is no character (a surrogate, or above U+10FFFF) is written as U+FFFD.
ORVO_API void AppendCodePoint(char32_t value, std::string& utf8);

// Each byte of a broken sequence becomes U+FFFD, and so does a lone surrogate. The forms with a
// second argument replace its content and keep its memory.
ORVO_API std::u16string Utf8ToUtf16(std::string_view utf8);
ORVO_API void Utf8ToUtf16(std::string_view utf8, std::u16string& utf16);
ORVO_API std::string Utf16ToUtf8(std::u16string_view utf16);
ORVO_API void Utf16ToUtf8(std::u16string_view utf16, std::string& utf8);

}  // namespace orvo
