// The lookup box of an address view: what is typed moves the selection to the first record that
// starts with it.
// SPDX-License-Identifier: MIT
#include <orvoshare/addressviews/DetailViewAddrInf.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <platform/time/TickCount.h>
#include <platform/window/base/WindowSystem.h>

namespace orvo {
namespace {

constexpr UINT kSimpleBeep = ~0U;
constexpr std::uint32_t kPause = 3000;  // milliseconds, after which a user begins a new name

}  // namespace

const MessageMap& CLookupEdit::ThisMap() {
    static const MessageMap map{
        COrvoEdit::ThisMap(),
        {On<WM_CHAR>(&CLookupEdit::OnChar), On<WM_KEYDOWN>(&CLookupEdit::OnKeyDown)}};
    return map;
}

void CLookupEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags) {
    CString before;
    GetWindowText(before);
    COrvoEdit::OnChar(nChar, nRepCnt, nFlags);
    if (!m_pListBox) return;
    CString text;
    GetWindowText(text);
    const bool isLonger = text.Left(before.GetLength()) == before;
    const std::uint32_t now = GetTickCount();
    const bool goesOn = isLonger && m_box == before && now - m_lastKey < kPause;
    m_lastKey = now;
    if (!goesOn) m_typed = isLonger ? before : CString();
    m_typed += isLonger ? text.Mid(before.GetLength()) : text;
    Search(before, text, isLonger);
    GetWindowText(m_box);
}

void CLookupEdit::Search(const CString& before, const CString& text, bool isLonger) {
    if (text.IsEmpty()) {
        EndRefusal();
        if (!before.IsEmpty()) SelectAndScroll(0);
        return;
    }
    const int index = m_pListBox->DV_Lookup(text);
    if (index != -1) {
        EndRefusal();
        SelectAndScroll(index);
    } else if (isLonger) {
        SetWindowText(before);
        SetSel(before.GetLength(), before.GetLength());
        MessageBeep(kSimpleBeep);
        Refuse();
    } else {
        StartOver();
        Refuse();
    }
}

void CLookupEdit::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) {
    m_isRefused = false;
    if (m_pListBox && IsForView(nChar)) {
        orvo::SendMessage(m_pListBox->DV_GetHwnd(), WM_KEYDOWN, nChar,
                          MAKELPARAM(static_cast<int>(nRepCnt), static_cast<int>(nFlags)));
    } else {
        COrvoEdit::OnKeyDown(nChar, nRepCnt, nFlags);
    }
}

void CLookupEdit::Clear() {
    EndRefusal();
    SetSel(0, -1);
    SendMessage(WM_CLEAR);
}

int CLookupEdit::Delete() {
    int first = 0;
    int last = 0;
    GetSel(first, last);
    if (first == last && last == GetWindowTextLength()) return 0;
    SendMessage(WM_COMMAND, ID_EDIT_DELETE);
    if (!m_pListBox) return 1;
    CString text;
    GetWindowText(text);
    const int index = m_pListBox->DV_Lookup(text);
    if (index != -1) {
        SelectAndScroll(index);
    } else {
        StartOver();
    }
    return 1;
}

void CLookupEdit::SelectAndScroll(int nIndex) {
    if (!m_pListBox) return;
    m_pListBox->DV_SelectAllItems(0);
    m_pListBox->DV_SelectItem(nIndex, 1);
    m_pListBox->DV_EnsureVisible(nIndex, 0);
}

void CLookupEdit::Refuse() {
    m_isRefused = true;
    m_isRefusalTold = true;
    if (m_refusalListener) m_refusalListener(m_typed);
}

void CLookupEdit::EndRefusal() {
    m_isRefused = false;
    if (std::exchange(m_isRefusalTold, false) && m_refusalListener) m_refusalListener({});
}

// The text was changed into one that nothing starts with.
void CLookupEdit::StartOver() {
    Clear();
    m_pListBox->DV_SelectAllItems(0);
    m_pListBox->DV_SelectItem(0, 1);
    MessageBeep(kSimpleBeep);
}

}  // namespace orvo
