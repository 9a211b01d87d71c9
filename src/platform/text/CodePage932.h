// Code page 932 with private codes for the characters that it lacks.
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <shared_mutex>
#include <unordered_map>
#include <vector>

#include <platform/text/CodePage.h>

namespace orvo {

class CodePage932 : public CodePage {
public:
    CodePage932();

    bool IsLeadByte(unsigned char byte) const override;
    std::size_t CharacterLength(std::string_view text) const override;
    bool IsLossless() const override;
    void ToUtf16(std::string_view text, std::u16string& utf16) const override;
    void FromUtf16(std::u16string_view utf16, std::string& text) const override;

private:
    // Both return 0 where there is none.
    char32_t CharacterOfPrivateCode(unsigned code) const;
    unsigned PrivateCodeOfCharacter(char32_t character) const;

    mutable std::atomic<bool> m_isLossless{true};
    mutable std::shared_mutex m_privateMutex;
    mutable std::vector<char32_t> m_privateCharacters;  // in the order in which codes were given
    mutable std::unordered_map<char32_t, unsigned> m_privateCodes;
};

}  // namespace orvo
