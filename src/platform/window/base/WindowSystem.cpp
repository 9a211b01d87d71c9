// The window system in force, and the functions that ask it.
// SPDX-License-Identifier: MIT
#include <array>
#include <utility>

#include <platform/window/base/PlaySound.h>
#include <platform/window/base/WindowSystem.h>

namespace orvo {

namespace {

WindowSystem* g_systemInForce = nullptr;
HCURSOR g_shownCursor = nullptr;

}  // namespace

WindowSystem& WindowSystem::Current() {
    return g_systemInForce ? *g_systemInForce : DefaultWindowSystem();
}

void WindowSystem::SetCurrent(WindowSystem* system) {
    g_systemInForce = system;
}

HCURSOR LoadStandardCursor(int number) {
    static const std::array<Cursor, 5> cursors{{{IDC_ARROW, {}, 0, {}},
                                                {IDC_IBEAM, {}, 0, {}},
                                                {IDC_WAIT, {}, 0, {}},
                                                {IDC_SIZEWE, {}, 0, {}},
                                                {IDC_HAND, {}, 0, {}}}};
    for (const Cursor& cursor : cursors) {
        if (cursor.standard == number) return &cursor;
    }
    return nullptr;
}

HCURSOR SetCursor(HCURSOR cursor) {
    WindowSystem::Current().ShowCursor(cursor);
    return std::exchange(g_shownCursor, cursor);
}

HCURSOR GetCursor() {
    return g_shownCursor;
}

CWaitCursor::CWaitCursor() : m_before(SetCursor(LoadStandardCursor(IDC_WAIT))) {}

CWaitCursor::~CWaitCursor() {
    SetCursor(m_before);
}

BOOL MessageBeep(UINT type) {
    WindowSystem::Current().Beep(type);
    return 1;
}

BOOL PlaySoundA(const char* path, const void* module, DWORD flags) {
    WindowSystem& system = WindowSystem::Current();
    if (!path || (flags & SND_PURGE) != 0) {
        system.StopSound();
        return 1;
    }
    constexpr DWORD kPlaysFile = SND_FILENAME | SND_ASYNC;
    return !module && flags == kPlaysFile && system.PlaySoundFile(path) ? 1 : 0;
}

COLORREF GetSysColor(int id) {
    return WindowSystem::Current().Colour(id);
}

BOOL GetCursorPos(CPoint* point) {
    *point = WindowSystem::Current().PointerPosition();
    return 1;
}

}  // namespace orvo
