// Sent and posted messages.
// SPDX-License-Identifier: MIT
#include <platform/window/base/CWnd.h>
#include <platform/window/base/ForeignWindow.h>
#include <platform/window/base/WindowInput.h>
#include <platform/window/base/WindowState.h>
#include <platform/window/base/WindowSystem.h>

namespace orvo {

namespace {

// Makes a message the one that is being handled, for as long as that takes.
class CurrentMessage {
public:
    explicit CurrentMessage(const MSG& message) : m_before(WindowState::Get().current) {
        WindowState::Get().current = &message;
    }
    ~CurrentMessage() {
        WindowState& state = WindowState::Get();
        state.current = m_before;
        if (!m_before) state.retiredPeers.clear();
    }
    CurrentMessage(const CurrentMessage&) = delete;
    CurrentMessage& operator=(const CurrentMessage&) = delete;

private:
    const MSG* m_before;
};

// Each window is looked up by its handle, as the one below may have destroyed it.
bool IsTakenAway(MSG message) {
    HWND handle = message.hwnd;
    while (CWnd* window = WindowFromHandle(handle)) {
        const HWND parent = window->GetParent() ? window->GetParent()->GetSafeHwnd() : nullptr;
        if (window->PreTranslateMessage(&message)) return true;
        handle = parent;
    }
    return false;
}

}  // namespace

WindowState& WindowState::Get() {
    static WindowState state;
    return state;
}

CWnd* WindowFromHandle(HWND window) {
    return WindowState::Get().windows.Find(window);
}

BOOL IsWindow(HWND window) {
    return WindowFromHandle(window) != nullptr;
}

LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* target = WindowFromHandle(window);
    if (!target) return SendToForeignWindow(window, message, wParam, lParam);
    const MSG sent{window, message, wParam, lParam};
    const CurrentMessage current(sent);
    return target->WindowProc(message, wParam, lParam);
}

BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!IsWindow(window)) return 0;
    WindowState::Get().queue.push_back({window, message, wParam, lParam});
    WindowSystem::Current().WakeUp();
    return 1;
}

bool HandleInput(const MSG& message) {
    if (IsTakenAway(message)) return false;
    SendMessage(message.hwnd, message.message, message.wParam, message.lParam);
    return true;
}

int PumpMessages() {
    std::deque<MSG>& queue = WindowState::Get().queue;
    int handled = 0;
    while (!queue.empty()) {
        const MSG message = queue.front();
        queue.pop_front();
        if (!IsWindow(message.hwnd)) continue;
        HandleInput(message);
        ++handled;
    }
    return handled;
}

void NoteFocus(HWND window) {
    WindowState& state = WindowState::Get();
    if (state.focus == window) return;
    const HWND before = state.focus;
    state.focus = IsWindow(window) ? window : nullptr;
    SendMessage(before, WM_KILLFOCUS, WParamOf(window));
    if (state.focus == window) SendMessage(window, WM_SETFOCUS, WParamOf(before));
}

CWnd* AfxGetMainWnd() {
    return WindowFromHandle(WindowState::Get().mainWindow);
}

void AfxSetMainWnd(CWnd* window) {
    WindowState::Get().mainWindow = window ? window->GetSafeHwnd() : nullptr;
}

}  // namespace orvo
