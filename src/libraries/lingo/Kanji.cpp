// Telling Japanese script from other text.
// SPDX-License-Identifier: MIT
#include <string>

#include <unicode/uscript.h>
#include <unicode/utf16.h>

#include <contracts/TextServices.h>
#include <platform/text/CodePage.h>
#include <platform/text/Utf8.h>

namespace orvo {

namespace {

// Signs of Japanese writing that Unicode counts to no script, since several share them.
bool IsSharedSign(UChar32 character) {
    constexpr UChar32 kClosingMark = 0x3006;
    constexpr UChar32 kLongMark = 0x30FC;
    constexpr UChar32 kHalfwidthLongMark = 0xFF70;
    constexpr UChar32 kHalfwidthVoicedMark = 0xFF9E;
    constexpr UChar32 kHalfwidthSemiVoicedMark = 0xFF9F;
    return character == kClosingMark || character == kLongMark || character == kHalfwidthLongMark ||
           character == kHalfwidthVoicedMark || character == kHalfwidthSemiVoicedMark;
}

bool IsKanjiOrKana(UChar32 character) {
    UErrorCode status = U_ZERO_ERROR;
    switch (uscript_getScript(character, &status)) {
        case USCRIPT_HAN:
        case USCRIPT_HIRAGANA:
        case USCRIPT_KATAKANA:
            return true;
        default:
            return IsSharedSign(character);
    }
}

}  // namespace

bool is_kanji_or_kana_string(const char* text) {
    const std::string_view view = text ? std::string_view(text) : std::string_view();
    if (AsciiLength(view) == view.size()) return false;
    std::u16string utf16;
    CodePage::System().ToUtf16(view, utf16);
    for (std::size_t position = 0; position < utf16.size();) {
        UChar32 character = 0;
        U16_NEXT(utf16.data(), position, utf16.size(), character);
        if (IsKanjiOrKana(character)) return true;
    }
    return false;
}

}  // namespace orvo
