// COleDropTarget: what becomes of data that is dragged over a window.
// SPDX-License-Identifier: MIT
#include <unordered_map>

#include <platform/desktop/DropTarget.h>

namespace orvo {
namespace {

std::unordered_map<HWND, COleDropTarget*>& Targets() {
    static std::unordered_map<HWND, COleDropTarget*> targets;
    return targets;
}

}  // namespace

COleDropTarget::~COleDropTarget() {
    Revoke();
}

DROPEFFECT COleDropTarget::OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint) {
    return DROPEFFECT_NONE;
}

DROPEFFECT COleDropTarget::OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint) {
    return DROPEFFECT_NONE;
}

BOOL COleDropTarget::OnDrop(CWnd*, COleDataObject*, DROPEFFECT, CPoint) {
    return 0;
}

DROPEFFECT COleDropTarget::OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT, CPoint) {
    return kDropNotHandled;
}

void COleDropTarget::OnDragLeave(CWnd*) {}

DROPEFFECT COleDropTarget::OnDragScroll(CWnd*, DWORD, CPoint) {
    return DROPEFFECT_NONE;
}

BOOL COleDropTarget::Register(CWnd* window) {
    const HWND handle = window ? window->GetSafeHwnd() : nullptr;
    if (!handle || IsWindow(m_window) || FromWindow(handle)) return 0;
    Revoke();
    m_window = handle;
    Targets().emplace(handle, this);
    window->GetPeer()->TakeDrops(true);
    return 1;
}

void COleDropTarget::Revoke() {
    if (!m_window) return;
    Targets().erase(m_window);
    const CWnd* window = CWnd::FromHandle(m_window);
    if (window && window->GetPeer()) window->GetPeer()->TakeDrops(false);
    m_window = nullptr;
}

COleDropTarget* COleDropTarget::FromWindow(HWND window) {
    const auto found = Targets().find(window);
    return found == Targets().end() ? nullptr : found->second;
}

DROPEFFECT COleDropTarget::DoDragEnter(COleDataObject& data, DWORD keyState, DROPEFFECT allowed,
                                       CPoint point) {
    return OnDragEnter(CWnd::FromHandle(m_window), &data, keyState, point) & allowed;
}

DROPEFFECT COleDropTarget::DoDragOver(COleDataObject& data, DWORD keyState, DROPEFFECT allowed,
                                      CPoint point) {
    CWnd* window = CWnd::FromHandle(m_window);
    const DROPEFFECT scroll = OnDragScroll(window, keyState, point);
    if ((scroll & DROPEFFECT_SCROLL) != 0) return scroll & allowed;
    return OnDragOver(window, &data, keyState, point) & allowed;
}

DROPEFFECT COleDropTarget::DoDrop(COleDataObject& data, DWORD keyState, DROPEFFECT allowed,
                                  CPoint point) {
    CWnd* window = CWnd::FromHandle(m_window);
    const DROPEFFECT effect = OnDragOver(window, &data, keyState, point) & allowed;
    const DROPEFFECT done = OnDropEx(window, &data, effect, allowed, point);
    if (done != kDropNotHandled) return done;
    if (effect == DROPEFFECT_NONE) {
        OnDragLeave(window);
        return DROPEFFECT_NONE;
    }
    return OnDrop(window, &data, effect, point) ? effect : DROPEFFECT_NONE;
}

}  // namespace orvo
