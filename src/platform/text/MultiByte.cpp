// Character tests and small text functions over the system's code page.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>
#include <string>

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <platform/text/CodePage.h>
#include <platform/text/MultiByte.h>

namespace orvo {

namespace {

constexpr unsigned kLargestUtf8Character = 4;

std::string_view ViewOf(const unsigned char* text) {
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

// The code of the first character: a byte, or lead byte * 256 + trail byte.
unsigned CodeOf(std::string_view character) {
    unsigned code = 0;
    for (const char byte : character) code = code << 8 | static_cast<unsigned char>(byte);
    return code;
}

std::string_view TakeCharacter(const CodePage& page, std::string_view& text) {
    const std::string_view character = text.substr(0, page.CharacterLength(text));
    text.remove_prefix(character.size());
    return character;
}

bool IsPrintableOnPage(const CodePage& page, unsigned code) {
    if (code > 0xFFFF) return false;
    const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
    const std::string_view character =
        code > 0xFF ? std::string_view(bytes, 2) : std::string_view(bytes + 1, 1);
    if (page.CharacterLength(character) != character.size()) return false;
    std::u16string utf16;
    page.ToUtf16(character, utf16);
    std::size_t units = 0;
    UChar32 value = 0;
    U16_NEXT(utf16.data(), units, utf16.size(), value);
    return units == utf16.size() && value != 0xFFFD && u_isprint(value);
}

}  // namespace

int IsDBCSLeadByte(unsigned char byte) {
    return CodePage::System().IsLeadByte(byte);
}

int _ismbcprint(unsigned int character) {
    const CodePage& page = CodePage::System();
    if (page.Number() != kUtf8CodePage) return IsPrintableOnPage(page, character);
    return character <= UCHAR_MAX_VALUE && u_isprint(static_cast<UChar32>(character));
}

int _mbscmp(const unsigned char* left, const unsigned char* right) {
    const CodePage& page = CodePage::System();
    std::string_view leftRest = ViewOf(left);
    std::string_view rightRest = ViewOf(right);
    while (!leftRest.empty() && !rightRest.empty()) {
        const unsigned leftCode = CodeOf(TakeCharacter(page, leftRest));
        const unsigned rightCode = CodeOf(TakeCharacter(page, rightRest));
        if (leftCode != rightCode) return leftCode < rightCode ? -1 : 1;
    }
    return static_cast<int>(rightRest.empty()) - static_cast<int>(leftRest.empty());
}

char* lstrcpyn(char* target, const char* source, int count) {
    if (!target || count < 1) return target;
    const CodePage& page = CodePage::System();
    const std::size_t room = static_cast<std::size_t>(count) - 1;
    const std::string_view text =
        source ? std::string_view(source, strnlen(source, room + kLargestUtf8Character))
               : std::string_view();
    const std::size_t length = page.Number() == kUtf8CodePage ? CutLength(page, text, room, false)
                                                              : std::min(text.size(), room);
    *std::copy_n(text.begin(), length, target) = '\0';
    return target;
}

}  // namespace orvo
