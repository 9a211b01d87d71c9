// Code pages of single bytes, such as windows-1252.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <unordered_map>

#include <platform/text/CodePage.h>

namespace orvo {

// A page in which every byte is a character. The lower half is ASCII; a byte of the upper half that
// has no meaning stands for the code point of its value, so that it comes back.
class SingleBytePage : public CodePage {
public:
    // Null where ICU knows no such page, or knows it as one of more bytes or without ASCII.
    static std::unique_ptr<CodePage> Make(unsigned number);

    bool IsLeadByte(unsigned char) const override { return false; }
    std::size_t CharacterLength(std::string_view text) const override { return !text.empty(); }
    bool IsLossless() const override { return false; }
    void ToUtf16(std::string_view text, std::u16string& utf16) const override;
    void FromUtf16(std::u16string_view utf16, std::string& text) const override;

private:
    using DecodeTable = std::array<char16_t, 256>;

    SingleBytePage(unsigned number, const DecodeTable& decode);

    DecodeTable m_decode;
    std::unordered_map<char16_t, char> m_encode;
};

}  // namespace orvo
