// Code page 932: the vendor's table made once from ICU, and the private codes.
// SPDX-License-Identifier: MIT
#include <array>
#include <mutex>

#include <unicode/ucnv.h>
#include <unicode/utf16.h>

#include <platform/text/CodePage932.h>

namespace orvo {

namespace {

constexpr char16_t kNoCharacter = 0xFFFD;
constexpr unsigned kNoCode = 0;
constexpr unsigned kTrailsOfLead = 188;  // 40 to 7E and 80 to FC
constexpr unsigned kFirstPrivateLead = 0xF0;
constexpr unsigned kLastPrivateLead = 0xF9;
constexpr std::size_t kPrivateCodeCount =
    (kLastPrivateLead - kFirstPrivateLead + 1) * kTrailsOfLead;

bool IsLead(unsigned byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}
bool IsTrail(unsigned byte) {
    return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

bool IsPrivate(unsigned code) {
    return code >> 8 >= kFirstPrivateLead && code >> 8 <= kLastPrivateLead;
}
unsigned PrivateCodeAt(std::size_t index) {
    const unsigned lead = kFirstPrivateLead + static_cast<unsigned>(index) / kTrailsOfLead;
    const unsigned trail = 0x40 + static_cast<unsigned>(index) % kTrailsOfLead;
    return lead << 8 | (trail < 0x7F ? trail : trail + 1);
}
std::size_t IndexOfPrivateCode(unsigned code) {
    const unsigned trail = code & 0xFF;
    return ((code >> 8) - kFirstPrivateLead) * kTrailsOfLead + trail - (trail < 0x7F ? 0x40 : 0x41);
}

// The single bytes that ICU's converter moves or lacks, and their characters.
struct SingleByte {
    unsigned char byte;
    char16_t character;
};
constexpr SingleByte kPutRight[] = {{0x1A, 0x1A},   {0x1C, 0x1C},   {0x7F, 0x7F},   {0x80, 0x80},
                                    {0xA0, 0xF8F0}, {0xFD, 0xF8F1}, {0xFE, 0xF8F2}, {0xFF, 0xF8F3}};

// A code is a byte, or lead byte * 256 + trail byte.
struct Tables {
    Tables();

    std::array<char16_t, 0x10000> decode;
    std::array<std::uint16_t, 0x10000> encode;
};

char16_t IcuDecode(UConverter* converter, unsigned code) {
    const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
    const bool isDouble = code > 0xFF;
    UChar target[4] = {};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = ucnv_toUChars(converter, target, 4, isDouble ? bytes : bytes + 1,
                                         isDouble ? 2 : 1, &status);
    return U_SUCCESS(status) && length == 1 ? target[0] : kNoCharacter;
}

unsigned IcuEncode(UConverter* converter, char16_t character) {
    char bytes[8] = {};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = ucnv_fromUChars(converter, bytes, sizeof bytes, &character, 1, &status);
    if (U_FAILURE(status) || length < 1 || length > 2) return kNoCode;
    const auto first = static_cast<unsigned char>(bytes[0]);
    return length == 1 ? first : first << 8 | static_cast<unsigned char>(bytes[1]);
}

icu::LocalUConverterPointer OpenConverter() {
    UErrorCode status = U_ZERO_ERROR;
    icu::LocalUConverterPointer converter(ucnv_open("ibm-943_P15A-2003", &status));
    ucnv_setToUCallBack(converter.getAlias(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &status);
    ucnv_setFromUCallBack(converter.getAlias(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr,
                          nullptr, &status);
    if (U_FAILURE(status)) throw std::runtime_error("ICU lacks the table of code page 932");
    return converter;
}

// Some characters have several codes; ICU decides which one is written.
Tables::Tables() {
    decode.fill(kNoCharacter);
    encode.fill(kNoCode);
    const auto converter = OpenConverter();
    const auto addCode = [&](unsigned code) {
        const char16_t character = IcuDecode(converter.getAlias(), code);
        decode[code] = character;
        if (character != kNoCharacter)
            encode[character] =
                static_cast<std::uint16_t>(IcuEncode(converter.getAlias(), character));
    };

    for (unsigned byte = 0; byte < 0x100; ++byte)
        if (!IsLead(byte)) addCode(byte);
    for (unsigned code = 0x8140; code <= 0xFCFC; ++code)
        if (IsLead(code >> 8) && IsTrail(code & 0xFF) && !IsPrivate(code)) addCode(code);
    for (const SingleByte& row : kPutRight) {
        decode[row.byte] = row.character;
        encode[row.character] = row.byte;
    }
}

const Tables& TheTables() {
    static const Tables tables;
    return tables;
}

unsigned CodeAt(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    if (!IsLead(first) || text.size() < 2) return first;
    const auto second = static_cast<unsigned char>(text[1]);
    return IsTrail(second) ? first << 8 | second : first;
}

void AppendCode(unsigned code, std::string& text) {
    if (code > 0xFF) text += static_cast<char>(code >> 8);
    text += static_cast<char>(code & 0xFF);
}

void AppendCharacter(char32_t character, std::u16string& utf16) {
    if (U_IS_BMP(character)) {
        utf16 += static_cast<char16_t>(character);
    } else {
        utf16 += static_cast<char16_t>(U16_LEAD(character));
        utf16 += static_cast<char16_t>(U16_TRAIL(character));
    }
}

}  // namespace

CodePage932::CodePage932() : CodePage(kJapaneseCodePage) {}

bool CodePage932::IsLeadByte(unsigned char byte) const {
    return IsLead(byte);
}

std::size_t CodePage932::CharacterLength(std::string_view text) const {
    if (text.empty()) return 0;
    return CodeAt(text) > 0xFF ? 2 : 1;
}

bool CodePage932::IsLossless() const {
    return m_isLossless;
}

char32_t CodePage932::CharacterOfPrivateCode(unsigned code) const {
    const std::shared_lock lock(m_privateMutex);
    const std::size_t index = IndexOfPrivateCode(code);
    return index < m_privateCharacters.size() ? m_privateCharacters[index] : 0;
}

unsigned CodePage932::PrivateCodeOfCharacter(char32_t character) const {
    {
        const std::shared_lock lock(m_privateMutex);
        const auto found = m_privateCodes.find(character);
        if (found != m_privateCodes.end()) return found->second;
    }
    const std::unique_lock lock(m_privateMutex);
    const auto found = m_privateCodes.find(character);
    if (found != m_privateCodes.end()) return found->second;
    if (m_privateCharacters.size() == kPrivateCodeCount) return kNoCode;
    const unsigned code = PrivateCodeAt(m_privateCharacters.size());
    m_privateCharacters.push_back(character);
    m_privateCodes.emplace(character, code);
    m_isLossless = m_privateCharacters.size() < kPrivateCodeCount;
    return code;
}

void CodePage932::ToUtf16(std::string_view text, std::u16string& utf16) const {
    const Tables& tables = TheTables();
    utf16.clear();
    utf16.reserve(text.size());
    while (!text.empty()) {
        const unsigned code = CodeAt(text);
        const std::size_t length = code > 0xFF ? 2 : 1;
        const char32_t givenOut = IsPrivate(code) ? CharacterOfPrivateCode(code) : 0;
        if (givenOut != 0)
            AppendCharacter(givenOut, utf16);
        else if (tables.decode[code] == kNoCharacter)
            utf16.append(length, kNoCharacter);
        else
            utf16 += tables.decode[code];
        text.remove_prefix(length);
    }
}

void CodePage932::FromUtf16(std::u16string_view utf16, std::string& text) const {
    const Tables& tables = TheTables();
    text.clear();
    text.reserve(utf16.size() * 2);
    for (std::size_t position = 0; position < utf16.size();) {
        UChar32 value = 0;
        U16_NEXT(utf16.data(), position, utf16.size(), value);
        if (U_IS_SURROGATE(value)) value = kNoCharacter;
        unsigned code = U_IS_BMP(value) ? tables.encode[static_cast<std::size_t>(value)] : kNoCode;
        if (code == kNoCode && value != 0)
            code = PrivateCodeOfCharacter(static_cast<char32_t>(value));
        AppendCode(code == kNoCode && value != 0 ? '?' : code, text);
    }
}

}  // namespace orvo
