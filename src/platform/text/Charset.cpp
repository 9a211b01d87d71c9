// Text of files: strict decoding and encoding by ICU's converters.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <limits>
#include <string>

#include <unicode/ucnv.h>
#include <unicode/utf8.h>

#include <platform/text/Charset.h>
#include <platform/text/Utf8.h>

namespace orvo {

namespace {

// Leaves the error as it is. ICU's own stop function would pass over the characters that may be
// ignored in display, a soft hyphen or a joiner, and lose them.
void StopAtLackingCharacter(const void*, UConverterFromUnicodeArgs*, const UChar*, int32_t, UChar32,
                            UConverterCallbackReason, UErrorCode*) {}

icu::LocalUConverterPointer OpenStrictConverter(std::string_view name) {
    UErrorCode status = U_ZERO_ERROR;
    if (name.empty()) return icu::LocalUConverterPointer();
    icu::LocalUConverterPointer converter(ucnv_open(std::string(name).c_str(), &status));
    ucnv_setToUCallBack(converter.getAlias(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &status);
    ucnv_setFromUCallBack(converter.getAlias(), StopAtLackingCharacter, nullptr, nullptr, nullptr,
                          &status);
    return U_SUCCESS(status) ? std::move(converter) : icu::LocalUConverterPointer();
}

// ICU's table of Japanese text moves these three control characters round.
bool MovesControls(UConverter* converter) {
    UErrorCode status = U_ZERO_ERROR;
    return std::string_view(ucnv_getName(converter, &status)) == "ibm-943_P15A-2003";
}
char16_t ControlAfterDecoding(char16_t unit) {
    return unit == 0x1C ? 0x1A : unit == 0x7F ? 0x1C : unit == 0x1A ? 0x7F : unit;
}
char16_t ControlBeforeEncoding(char16_t unit) {
    return unit == 0x1A ? 0x1C : unit == 0x1C ? 0x7F : unit == 0x7F ? 0x1A : unit;
}

// Calls ICU with a guess of the room, and again with the room that it asks for. False where the
// text can't be converted.
template <class Text, class Convert>
bool ConvertInto(Text& target, std::size_t guess, Convert convert) {
    constexpr std::size_t kLargest = std::numeric_limits<int32_t>::max();
    if (guess > kLargest) return false;
    target.resize(guess);
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = convert(target.data(), static_cast<int32_t>(guess), &status);
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        status = U_ZERO_ERROR;
        target.resize(static_cast<std::size_t>(length));
        length = convert(target.data(), length, &status);
    }
    if (U_FAILURE(status)) return false;
    target.resize(static_cast<std::size_t>(length));
    return true;
}

}  // namespace

bool IsValidUtf8(std::string_view bytes) {
    std::size_t position = AsciiLength(bytes);
    while (position < bytes.size()) {
        UChar32 value = 0;
        U8_NEXT(bytes.data(), position, bytes.size(), value);
        if (value < 0) return false;
    }
    return true;
}

bool DecodeCharset(std::string_view name, std::string_view bytes, std::string& utf8) {
    const auto converter = OpenStrictConverter(name);
    if (converter.isNull()) return false;
    std::u16string utf16;
    const bool converted = ConvertInto(
        utf16, bytes.size() * 2, [&](char16_t* target, int32_t room, UErrorCode* status) {
            return ucnv_toUChars(converter.getAlias(), target, room, bytes.data(),
                                 static_cast<int32_t>(bytes.size()), status);
        });
    if (!converted) return false;
    if (MovesControls(converter.getAlias()))
        std::transform(utf16.begin(), utf16.end(), utf16.begin(), ControlAfterDecoding);
    Utf16ToUtf8(utf16, utf8);
    return true;
}

bool EncodeCharset(std::string_view name, std::string_view utf8, std::string& bytes) {
    const auto converter = OpenStrictConverter(name);
    if (converter.isNull() || !IsValidUtf8(utf8)) return false;
    std::u16string utf16 = Utf8ToUtf16(utf8);
    if (MovesControls(converter.getAlias()))
        std::transform(utf16.begin(), utf16.end(), utf16.begin(), ControlBeforeEncoding);
    constexpr std::size_t kStartAndEndMarks = 10;
    const std::size_t guess = (utf16.size() + kStartAndEndMarks) *
                              static_cast<std::size_t>(ucnv_getMaxCharSize(converter.getAlias()));
    std::string encoded;
    const bool converted =
        ConvertInto(encoded, guess, [&](char* target, int32_t room, UErrorCode* status) {
            return ucnv_fromUChars(converter.getAlias(), target, room, utf16.data(),
                                   static_cast<int32_t>(utf16.size()), status);
        });
    if (converted) bytes = std::move(encoded);
    return converted;
}

}  // namespace orvo
