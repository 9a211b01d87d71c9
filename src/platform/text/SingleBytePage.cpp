// Code pages of single bytes: tables made once from ICU's converters.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>

#include <unicode/ucnv.h>
#include <unicode/utf16.h>

#include <platform/text/SingleBytePage.h>

namespace orvo {

namespace {

constexpr unsigned kIsoPages = 28590;  // 28591 is ISO 8859-1, and so on
constexpr int kAsciiEnd = 0x80;
constexpr char16_t kNoMeaning = 0xFFFD;

icu::LocalUConverterPointer OpenSingleByteConverter(unsigned number) {
    const std::string digits = std::to_string(number);
    const std::string isoPart = std::to_string(number - kIsoPages);
    for (const std::string& name :
         {"windows-" + digits, "ibm-" + digits, "cp" + digits, "iso-8859-" + isoPart}) {
        UErrorCode status = U_ZERO_ERROR;
        icu::LocalUConverterPointer converter(ucnv_open(name.c_str(), &status));
        ucnv_setToUCallBack(converter.getAlias(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr,
                            nullptr, &status);
        if (U_SUCCESS(status) && ucnv_getMaxCharSize(converter.getAlias()) == 1) return converter;
    }
    return icu::LocalUConverterPointer();
}

char16_t DecodeByte(UConverter* converter, int byte) {
    const char source = static_cast<char>(byte);
    UChar target[2] = {kNoMeaning, 0};
    UErrorCode status = U_ZERO_ERROR;
    ucnv_toUChars(converter, target, 2, &source, 1, &status);
    return U_SUCCESS(status) ? target[0] : kNoMeaning;
}

}  // namespace

std::unique_ptr<CodePage> SingleBytePage::Make(unsigned number) {
    const auto converter = OpenSingleByteConverter(number);
    if (converter.isNull() || DecodeByte(converter.getAlias(), 'A') != u'A') return nullptr;

    DecodeTable decode{};
    for (int byte = 0; byte < kAsciiEnd; ++byte)
        decode[static_cast<std::size_t>(byte)] = static_cast<char16_t>(byte);
    for (int byte = kAsciiEnd; byte < 256; ++byte)
        decode[static_cast<std::size_t>(byte)] = DecodeByte(converter.getAlias(), byte);
    for (std::size_t byte = kAsciiEnd; byte < decode.size(); ++byte) {
        const char16_t same = static_cast<char16_t>(byte);
        const bool taken = std::find(decode.begin(), decode.end(), same) != decode.end();
        if (decode[byte] == kNoMeaning && !taken) decode[byte] = same;
    }
    return std::unique_ptr<CodePage>(new SingleBytePage(number, decode));
}

SingleBytePage::SingleBytePage(unsigned number, const DecodeTable& decode)
    : CodePage(number), m_decode(decode) {
    for (std::size_t byte = 0; byte < decode.size(); ++byte)
        if (decode[byte] != kNoMeaning) m_encode.emplace(decode[byte], static_cast<char>(byte));
}

void SingleBytePage::ToUtf16(std::string_view text, std::u16string& utf16) const {
    utf16.resize(text.size());
    std::transform(text.begin(), text.end(), utf16.begin(),
                   [this](char byte) { return m_decode[static_cast<unsigned char>(byte)]; });
}

void SingleBytePage::FromUtf16(std::u16string_view utf16, std::string& text) const {
    text.clear();
    text.reserve(utf16.size());
    for (std::size_t position = 0; position < utf16.size();) {
        UChar32 value = 0;
        U16_NEXT(utf16.data(), position, utf16.size(), value);
        const auto found = m_encode.find(static_cast<char16_t>(value));
        text += value > 0xFFFF || found == m_encode.end() ? '?' : found->second;
    }
}

}  // namespace orvo
