// CWnd: making and destroying windows, what they show, and where.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/window/base/CWnd.h>
#include <platform/window/base/WindowInput.h>
#include <platform/window/base/WindowState.h>
#include <platform/window/base/WindowSystem.h>

namespace orvo {

CWnd::~CWnd() {
    DestroyWindow();
}

BOOL CWnd::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    if (m_handle) return 0;
    const PeerPlace place{parent ? parent->GetPeer() : nullptr, rect, style};
    return Attach(MakePeer(WindowSystem::Current(), place), style, parent, id);
}

BOOL CWnd::Attach(std::unique_ptr<WindowPeer> peer, DWORD style, CWnd* parent, UINT id) {
    if (m_handle || !peer || !TakePeer(*peer)) return 0;
    m_handle = WindowState::Get().windows.Add(this);
    m_peer = std::move(peer);
    m_peer->Bind(m_handle);
    m_style = style;
    m_id = id;
    m_parent = parent && parent->m_handle ? parent : nullptr;
    if (m_parent) m_parent->m_children.push_back(this);
    PreSubclassWindow();

    const HWND handle = m_handle;
    CREATESTRUCT creation{style, m_peer->Place(), m_parent ? m_parent->m_handle : nullptr, id};
    const bool refused = orvo::SendMessage(handle, WM_CREATE, 0, LParamOf(&creation)) == -1;
    if (!IsWindow(handle)) return 0;
    if (refused) DestroyWindow();
    return refused ? 0 : 1;
}

BOOL CWnd::DestroyWindow() {
    if (!m_handle || m_isGoing) return 0;
    m_isGoing = true;
    SendMessage(WM_DESTROY);
    while (!m_children.empty()) {
        CWnd* child = m_children.back();
        child->DestroyWindow();
        // A child whose handler for WM_DESTROY led here goes by itself, a moment later.
        if (!m_children.empty() && m_children.back() == child) {
            m_children.pop_back();
            child->m_parent = nullptr;
        }
    }
    Tear();
    m_isGoing = false;
    return 1;
}

void CWnd::Tear() {
    WindowState& state = WindowState::Get();
    if (state.focus == m_handle) state.focus = nullptr;
    if (state.mainWindow == m_handle) state.mainWindow = nullptr;
    state.windows.Remove(m_handle);
    if (m_parent) std::erase(m_parent->m_children, this);
    while (!m_timers.empty()) KillTimer(m_timers.back());
    LosePeer();
    if (state.current) state.retiredPeers.push_back(std::move(m_peer));
    m_peer.reset();
    m_parent = nullptr;
    m_handle = nullptr;
}

std::unique_ptr<WindowPeer> CWnd::MakePeer(WindowSystem& system, const PeerPlace& place) {
    return system.MakeWindowPeer(place);
}

CWnd* CWnd::GetTopLevel() {
    CWnd* window = this;
    while (window->m_parent) window = window->m_parent;
    return window;
}

CWnd* CWnd::GetDlgItem(UINT id) const {
    const auto found = std::find_if(m_children.begin(), m_children.end(),
                                    [id](const CWnd* child) { return child->m_id == id; });
    return found == m_children.end() ? nullptr : *found;
}

CWnd* CWnd::GetOwner() const {
    CWnd* owner = FromHandle(m_owner);
    return owner ? owner : m_parent;
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return orvo::SendMessage(m_handle, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return orvo::PostMessage(m_handle, message, wParam, lParam);
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam) {
    std::vector<HWND> children;
    for (const CWnd* child : m_children) children.push_back(child->m_handle);
    for (const HWND handle : children) {
        orvo::SendMessage(handle, message, wParam, lParam);
        if (CWnd* child = FromHandle(handle)) {
            child->SendMessageToDescendants(message, wParam, lParam);
        }
    }
}

void CWnd::Invalidate(BOOL erase) {
    InvalidateRect(nullptr, erase);
}

void CWnd::InvalidateRect(const CRect* area, BOOL) {
    if (!m_peer) return;
    CRect all;
    GetClientRect(&all);
    m_peer->Invalidate(area ? *area : all);
}

void CWnd::UpdateWindow() {
    if (m_peer) m_peer->Update();
}

BOOL CWnd::RedrawWindow(const CRect* area, UINT flags) {
    if (!m_peer) return 0;
    if ((flags & RDW_INVALIDATE) != 0) InvalidateRect(area);
    if ((flags & RDW_UPDATENOW) != 0) UpdateWindow();
    return 1;
}

void CWnd::GetClientRect(CRect* rect) const {
    const CSize size = m_peer ? m_peer->ClientSize() : CSize{};
    *rect = {0, 0, size.cx, size.cy};
}

void CWnd::GetWindowRect(CRect* rect) const {
    *rect = m_peer ? m_peer->Place() : CRect{};
    if (m_parent) m_parent->ClientToScreen(rect);
}

void CWnd::MoveWindow(const CRect& rect, BOOL repaint) {
    if (!m_peer) return;
    m_peer->SetPlace(rect);
    if (repaint) Invalidate();
    SendMessage(WM_SIZE, 0, MAKELPARAM(rect.Width(), rect.Height()));
}

void CWnd::ClientToScreen(CPoint* point) const {
    if (m_peer) *point = *point + m_peer->ClientOrigin();
}

void CWnd::ScreenToClient(CPoint* point) const {
    if (m_peer) *point = *point - m_peer->ClientOrigin();
}

void CWnd::ClientToScreen(CRect* rect) const {
    if (m_peer) rect->OffsetRect(m_peer->ClientOrigin());
}

void CWnd::ScreenToClient(CRect* rect) const {
    if (m_peer) rect->OffsetRect(CPoint{} - m_peer->ClientOrigin());
}

void CWnd::SetWindowText(const CString& text) {
    SendMessage(WM_SETTEXT, 0, LParamOf(static_cast<const char*>(text)));
}

void CWnd::GetWindowText(CString& text) const {
    text = m_peer ? m_peer->Text() : CString();
}

int CWnd::GetWindowTextLength() const {
    return m_peer ? m_peer->Text().GetLength() : 0;
}

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT milliseconds) {
    if (!m_handle || id == 0) return 0;
    std::erase(m_timers, id);
    m_timers.push_back(id);
    WindowSystem::Current().StartTimer(m_handle, id, milliseconds);
    return id;
}

BOOL CWnd::KillTimer(UINT_PTR id) {
    return std::erase(m_timers, id) != 0 && WindowSystem::Current().StopTimer(m_handle, id) ? 1 : 0;
}

CWnd* CWnd::SetFocus() {
    CWnd* before = GetFocus();
    if (!m_peer) return before;
    m_peer->TakeFocus();
    NoteFocus(m_handle);
    return before;
}

CWnd* CWnd::GetFocus() {
    return FromHandle(WindowState::Get().focus);
}

BOOL CWnd::ShowWindow(BOOL show) {
    const BOOL before = IsWindowVisible();
    if (m_peer) m_peer->Show(show != 0);
    return before;
}

BOOL CWnd::EnableWindow(BOOL enable) {
    const BOOL wasDisabled = !IsWindowEnabled();
    if (m_peer) m_peer->Enable(enable != 0);
    return wasDisabled;
}

int CWnd::MessageBox(const CString& text, UINT type) {
    return WindowSystem::Current().ShowMessageBox(this, text, type);
}

int AfxMessageBox(const CString& text, UINT type, UINT) {
    return WindowSystem::Current().ShowMessageBox(AfxGetMainWnd(), text, type);
}

}  // namespace orvo
