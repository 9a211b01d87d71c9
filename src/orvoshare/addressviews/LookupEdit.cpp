// The lookup box of an address view: what is typed moves the selection to the first record that
// starts with it.
// SPDX-License-Identifier: MIT
#include <orvoshare/addressviews/DetailViewAddrInf.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <platform/window/WindowSystem.h>

namespace orvo {
namespace {

constexpr UINT kSimpleBeep = ~0U;

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
    if (text.IsEmpty()) {
        EndRefusal();
        if (!before.IsEmpty()) SelectAndScroll(0);
        return;
    }
    const int index = m_pListBox->DV_Lookup(text);
    if (index != -1) {
        EndRefusal();
        SelectAndScroll(index);
    } else if (text.Left(before.GetLength()) == before) {
        SetWindowText(before);
        SetSel(before.GetLength(), before.GetLength());
        MessageBeep(kSimpleBeep);
        Refuse(before, text.Mid(before.GetLength()));
    } else {
        StartOver();
        Refuse({}, text);
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

void CLookupEdit::Refuse(const CString& box, const CString& added) {
    m_refused += added;
    m_isRefused = true;
    if (m_refusalListener) m_refusalListener(box + m_refused);
}

void CLookupEdit::EndRefusal() {
    m_isRefused = false;
    if (m_refused.IsEmpty()) return;
    m_refused.Empty();
    if (m_refusalListener) m_refusalListener({});
}

// The text was changed into one that nothing starts with.
void CLookupEdit::StartOver() {
    Clear();
    m_pListBox->DV_SelectAllItems(0);
    m_pListBox->DV_SelectItem(0, 1);
    MessageBeep(kSimpleBeep);
}

}  // namespace orvo
