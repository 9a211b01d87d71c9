// Small steps over UTF-8 text.
// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstring>

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <platform/text/Utf8.h>

namespace orvo {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

}  // namespace

CodePoint FirstCodePoint(std::string_view text) {
    if (text.empty()) return {0, 0};
    std::size_t length = 0;
    UChar32 value = 0;
    U8_NEXT(text.data(), length, text.size(), value);
    if (value < 0) return {kReplacement, 1};
    return {static_cast<char32_t>(value), length};
}

std::size_t AsciiLength(std::string_view text) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::size_t length = 0;
    for (std::uint64_t eight = 0; length + sizeof eight <= text.size(); length += sizeof eight) {
        std::memcpy(&eight, text.data() + length, sizeof eight);
        if ((eight & kHighBits) != 0) break;
    }
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0x80) == 0) ++length;
    return length;
}

void AppendCodePoint(char32_t value, std::string& utf8) {
    if (value > 0x10FFFF || U_IS_SURROGATE(value)) value = kReplacement;
    char bytes[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, value);
    utf8.append(bytes, length);
}

std::u16string Utf8ToUtf16(std::string_view utf8) {
    std::u16string utf16;
    Utf8ToUtf16(utf8, utf16);
    return utf16;
}

void Utf8ToUtf16(std::string_view utf8, std::u16string& utf16) {
    utf16.resize(utf8.size());
    std::size_t units = 0;
    for (std::size_t position = 0; position < utf8.size();) {
        const std::size_t begin = position;
        UChar32 value = 0;
        U8_NEXT(utf8.data(), position, utf8.size(), value);
        if (value < 0) {
            position = begin + 1;
            value = kReplacement;
        }
        U16_APPEND_UNSAFE(utf16.data(), units, value);
    }
    utf16.resize(units);
}

std::string Utf16ToUtf8(std::u16string_view utf16) {
    std::string utf8;
    Utf16ToUtf8(utf16, utf8);
    return utf8;
}

void Utf16ToUtf8(std::u16string_view utf16, std::string& utf8) {
    constexpr std::size_t kBytesForUnit = 3;
    utf8.resize(utf16.size() * kBytesForUnit);
    std::size_t bytes = 0;
    for (std::size_t position = 0; position < utf16.size();) {
        UChar32 value = 0;
        U16_NEXT(utf16.data(), position, utf16.size(), value);
        if (U_IS_SURROGATE(value)) value = kReplacement;
        U8_APPEND_UNSAFE(utf8.data(), bytes, value);
    }
    utf8.resize(bytes);
}

}  // namespace orvo
