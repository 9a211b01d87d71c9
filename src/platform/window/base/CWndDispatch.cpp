// CWnd: how a message finds its handler, and what becomes of it without one.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/window/base/CWnd.h>
#include <platform/window/base/WindowState.h>
#include <platform/window/base/WindowSystem.h>

namespace orvo {

using Kind = MessageMapEntry::Kind;

const MessageMap& CWnd::ThisMap() {
    static const MessageMap map(std::initializer_list<MessageMapEntry>{});
    return map;
}

const MSG* CWnd::GetCurrentMessage() {
    return WindowState::Get().current;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (Dispatch(message, wParam, lParam, result)) return result;
    return DefWindowProc(message, wParam, lParam);
}

bool CWnd::Dispatch(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_COMMAND) return DispatchCommand(wParam, lParam, result);
    if (message == WM_NOTIFY) return lParam != 0 && OnNotify(wParam, lParam, &result) != 0;
    return GetMessageMap().Dispatch(Kind::Message, message, 0, *this, wParam, lParam, result);
}

bool CWnd::DispatchCommand(WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const UINT id = LOWORD(wParam);
    const UINT code = HIWORD(wParam);
    if (lParam == 0) {
        return GetMessageMap().Dispatch(Kind::Command, 0, id, *this, wParam, lParam, result);
    }
    CWnd* control = FromHandle(PointerOf<WindowHandle>(lParam));
    if (control && control->Reflect(Kind::ControlReflect, code, wParam, lParam, result)) {
        return true;
    }
    return GetMessageMap().Dispatch(Kind::Control, code, id, *this, wParam, lParam, result);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const NMHDR& header = *PointerOf<NMHDR>(lParam);
    CWnd* control = FromHandle(header.hwndFrom);
    if (control && control->Reflect(Kind::NotifyReflect, header.code, wParam, lParam, *result)) {
        return 1;
    }
    return GetMessageMap().Dispatch(Kind::Notify, header.code, header.idFrom, *this, wParam, lParam,
                                    *result);
}

bool CWnd::Reflect(Kind kind, UINT code, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    return GetMessageMap().Dispatch(kind, code, 0, *this, wParam, lParam, result);
}

LRESULT CWnd::NotifyParent(NMHDR& header, UINT code) {
    header = {m_handle, m_id, code};
    const LPARAM argument = LParamOf(&header);
    if (m_parent) return m_parent->SendMessage(WM_NOTIFY, m_id, argument);
    LRESULT result = 0;
    Reflect(Kind::NotifyReflect, code, m_id, argument, result);
    return result;
}

void CWnd::CommandToParent(UINT code) {
    const WPARAM wParam = MAKEWPARAM(m_id, code);
    const LPARAM lParam = LParamOf(m_handle);
    LRESULT result = 0;
    if (m_parent) {
        m_parent->SendMessage(WM_COMMAND, wParam, lParam);
    } else {
        Reflect(Kind::ControlReflect, code, wParam, lParam, result);
    }
}

LRESULT CWnd::Default() {
    const MSG* current = GetCurrentMessage();
    return current ? DefWindowProc(current->message, current->wParam, current->lParam) : 0;
}

void CWnd::OnChar(UINT character, UINT repeat, UINT flags) {
    DefWindowProc(WM_CHAR, character,
                  MAKELPARAM(static_cast<int>(repeat), static_cast<int>(flags)));
}

void CWnd::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    DefWindowProc(WM_KEYDOWN, key, MAKELPARAM(static_cast<int>(repeat), static_cast<int>(flags)));
}

void CWnd::OnLButtonDown(UINT flags, CPoint point) {
    DefWindowProc(WM_LBUTTONDOWN, flags, MAKELPARAM(point.x, point.y));
}

BOOL CWnd::OnSetCursor(CWnd* window, UINT hitCode, UINT message) {
    const WPARAM wParam = WParamOf(window ? window->GetSafeHwnd() : nullptr);
    const LPARAM lParam = MAKELPARAM(static_cast<int>(hitCode), static_cast<int>(message));
    return static_cast<BOOL>(DefWindowProc(WM_SETCURSOR, wParam, lParam));
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!m_peer) return 0;
    switch (message) {
        case WM_SETREDRAW:
            m_peer->SetRedraw(wParam != 0);
            return 0;
        case WM_SETTEXT:
            m_peer->SetText(PointerOf<const char>(lParam));
            return 1;
        case WM_GETTEXTLENGTH:
            return m_peer->Text().GetLength();
        case WM_GETTEXT: {
            if (wParam == 0) return 0;
            const CString text = m_peer->Text();
            const std::size_t count = std::min<std::size_t>(text.View().size(), wParam - 1);
            char* target = PointerOf<char>(lParam);
            *std::copy_n(text.View().begin(), count, target) = '\0';
            return static_cast<LRESULT>(count);
        }
        case WM_SETCURSOR:
            // The parent is asked first, so that it can show a shape over its children.
            if (m_parent && m_parent->SendMessage(WM_SETCURSOR, wParam, lParam) != 0) return 1;
            if (LOWORD(static_cast<unsigned long>(lParam)) == HTCLIENT &&
                WindowOf(wParam) == m_handle) {
                SetCursor(LoadStandardCursor(IDC_ARROW));
            }
            return 0;
        case WM_CLOSE:
            DestroyWindow();
            return 0;
        default:
            return 0;
    }
}

}  // namespace orvo
