// The card widget: the user's keys and clicks, and what becomes of the window.
// SPDX-License-Identifier: MIT
#include <utility>

#include <contracts/CardWidget.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/list/ListInput.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

const MessageMap& COrvoUICardView::ThisMap() {
    static const MessageMap map{
        CWnd::ThisMap(),
        {On<WM_KEYDOWN>(&COrvoUICardView::OnKeyDown),
         On<WM_LBUTTONDOWN>(&COrvoUICardView::OnLButtonDown),
         On<WM_LBUTTONUP>(&COrvoUICardView::OnLButtonUp),
         On<WM_LBUTTONDBLCLK>(&COrvoUICardView::OnLButtonDblClk),
         On<WM_RBUTTONDOWN>(&COrvoUICardView::OnRButtonDown),
         On<WM_SETFOCUS>(&COrvoUICardView::OnFocusChange),
         On<WM_KILLFOCUS>(&COrvoUICardView::OnFocusChange),
         On<WM_SYSCOLORCHANGE>(&COrvoUICardView::OnColourChange),
         On<WM_SIZE>(&COrvoUICardView::OnSize), On<WM_PAINT>(&COrvoUICardView::OnPaint)}};
    return map;
}

BOOL COrvoUICardView::PreTranslateMessage(MSG* message) {
    const bool isReturn = message->hwnd == GetSafeHwnd() && message->message == WM_KEYDOWN &&
                          message->wParam == VK_RETURN;
    if (isReturn) OnCardReturnKey();
    return isReturn;
}

// Return comes here where a program sends it.
void COrvoUICardView::OnKeyDown(UINT key, UINT, UINT) {
    if (key == VK_RETURN) return OnCardReturnKey();
    if (!m_cards) return;
    const WindowSystem& system = WindowSystem::Current();
    HandleListKey(*m_cards, key, {system.IsKeyDown(VK_SHIFT), system.IsKeyDown(VK_CONTROL), false});
}

int COrvoUICardView::CardAt(CPoint point) const {
    return m_cards ? m_cards->HitTest(point).row : -1;
}

void COrvoUICardView::OnLButtonDown(UINT flags, CPoint point) {
    SetFocus();
    if (!m_cards) return;
    const ListGesture gesture{(flags & MK_SHIFT) != 0, (flags & MK_CONTROL) != 0, false};
    m_narrowsOnRelease = HandleListPress(*m_cards, CardAt(point), gesture);
}

void COrvoUICardView::OnLButtonUp(UINT, CPoint point) {
    const int card = CardAt(point);
    const bool narrows = std::exchange(m_narrowsOnRelease, false);
    if (narrows && IsCardSelected(card)) SelectOnly(*m_cards, card, card);
}

void COrvoUICardView::OnLButtonDblClk(UINT, CPoint point) {
    const int card = CardAt(point);
    if (card >= 0) OnCardLButtonDblClk(card, point);
}

void COrvoUICardView::OnRButtonDown(UINT, CPoint point) {
    SetFocus();
    if (m_cards) HandleListRightPress(*m_cards, CardAt(point), {});
    // The report of the selection may have moved the cards, or destroyed the window.
    if (m_cards) OnCardOnRButtonDown(CardAt(point), point);
}

void COrvoUICardView::StateChanged(int card, UINT oldState, UINT newState) {
    if (((oldState ^ newState) & LVIS_SELECTED) == 0) return;
    OnCardSelected(card, (newState & LVIS_SELECTED) != 0);
}

// Only a window with the keyboard shows which card has the focus.
void COrvoUICardView::OnFocusChange(CWnd*) {
    Update(GetFocusCardIndex());
}

// A taller window has longer columns, and may be scrolled behind the last of them.
void COrvoUICardView::OnSize(UINT, int, int) {
    if (m_cards && m_cards->TopRow() >= GetCardCount()) EnsureVisible(GetCardCount() - 1);
}

LRESULT COrvoUICardView::OnPaint(WPARAM wParam, LPARAM) {
    if (m_cards && wParam != 0) m_cards->PaintRows(*reinterpret_cast<CDC*>(wParam));
    return 0;
}

}  // namespace orvo
