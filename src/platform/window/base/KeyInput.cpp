// What keys and characters of the user's become: messages, the same from every window system.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>
#include <string>

#include <platform/text/CodePage.h>
#include <platform/text/Utf8.h>
#include <platform/window/base/KeyInput.h>
#include <platform/window/base/WindowInput.h>

namespace orvo {

namespace {

// Keys that are a character by themselves.
constexpr UINT kCharacterKeys[] = {VK_BACK, VK_TAB, VK_RETURN, VK_ESCAPE, VK_SPACE};

constexpr LPARAM kOnce = MAKELPARAM(1, 0);

// 0 where there is none.
UINT ControlCharacterOf(UINT key, HeldKeys held) {
    constexpr UINT kBeforeA = 'A' - 1;
    if (held.alt) return 0;
    if (held.control && key >= 'A' && key <= 'Z') return key - kBeforeA;
    const bool isCharacter = std::find(std::begin(kCharacterKeys), std::end(kCharacterKeys), key) !=
                             std::end(kCharacterKeys);
    return isCharacter ? key : 0;
}

}  // namespace

bool HandleKeyDown(HWND window, UINT key, HeldKeys held) {
    if (!HandleInput({window, held.alt ? WM_SYSKEYDOWN : WM_KEYDOWN, key, kOnce})) return false;
    const UINT character = ControlCharacterOf(key, held);
    if (character != 0) HandleInput({window, WM_CHAR, character, kOnce});
    return true;
}

void HandleKeyUp(HWND window, UINT key, HeldKeys held) {
    HandleInput({window, held.alt ? WM_SYSKEYUP : WM_KEYUP, key, kOnce});
}

void HandleCharacter(HWND window, char32_t character) {
    const CodePage& page = CodePage::System();
    if (page.Number() == kUtf8CodePage) {
        HandleInput({window, WM_CHAR, character, kOnce});
        return;
    }
    std::string utf8;
    std::string bytes;
    AppendCodePoint(character, utf8);
    page.FromUtf8(utf8, bytes);
    for (const char byte : bytes) {
        HandleInput({window, WM_CHAR, static_cast<unsigned char>(byte), kOnce});
    }
}

}  // namespace orvo
