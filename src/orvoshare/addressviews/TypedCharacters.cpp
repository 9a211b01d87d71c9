// Which of the characters that are typed into a view belong to text.
// SPDX-License-Identifier: MIT
#include <orvoshare/addressviews/TypedCharacters.h>
#include <platform/text/CodePage.h>
#include <platform/text/MultiByte.h>

namespace orvo {
namespace {

bool IsLeadByte(UINT character) {
    // Under UTF-8 the whole code point comes at once.
    return CodePage::System().Number() != kUtf8CodePage &&
           IsDBCSLeadByte(static_cast<unsigned char>(character)) != 0;
}

// True also for the trail bytes that wouldn't be printable by themselves.
bool IsTrailByte(UINT leadByte, UINT character) {
    if (leadByte == 0) return false;
    const char bytes[] = {static_cast<char>(leadByte), static_cast<char>(character)};
    return CodePage::System().CharacterLength({bytes, sizeof bytes}) == sizeof bytes;
}

}  // namespace

bool TypedCharacters::IsForText(UINT character) {
    const bool isTrail = IsTrailByte(m_leadByte, character);
    const bool isLead = !isTrail && IsLeadByte(character);
    m_leadByte = isLead ? character & 0xFF : 0;
    return isTrail || isLead || _ismbcprint(character) != 0 || character == VK_BACK;
}

}  // namespace orvo
