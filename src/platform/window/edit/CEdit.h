// CEdit: one line of text that the user can change.
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <platform/window/base/CWnd.h>
#include <platform/window/edit/EditPeer.h>

namespace orvo {

// Text and selection are the peer's. Positions are bytes; the parent gets EN_UPDATE and EN_CHANGE
// after each change.
//
// WM_CHAR brings one character: a code point under UTF-8; on a page of double bytes the lead byte
// comes first and waits for its trail byte. The control characters of Ctrl+A, C, X and V select
// all, copy, cut and paste; of a text that is pasted the first line is taken, as much as fits.
class ORVO_API CEdit : public CWnd {
public:
    ~CEdit() override;

    void GetSel(int& first, int& last) const;
    void SetSel(int first, int last, BOOL scrolls = 1);  // 0, -1: all; -1, any: none
    void ReplaceSel(const CString& text);
    void LimitText(int bytes) { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(bytes)); }
    void Clear() { SendMessage(WM_CLEAR); }
    void Copy() { SendMessage(WM_COPY); }
    void Cut() { SendMessage(WM_CUT); }

protected:
    std::unique_ptr<WindowPeer> MakePeer(WindowSystem& system, const PeerPlace& place) override;
    bool TakePeer(WindowPeer& peer) override;
    void LosePeer() override { m_edit = nullptr; }
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool AnswerEdit(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool AnswerClipboard(UINT message);
    bool AnswerInput(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT CopySelection(WPARAM first, LPARAM last) const;
    void Select(int first, int last);
    bool CopyText() const;
    void PasteText();
    void CharacterTyped(UINT character);
    bool ControlTyped(UINT character);
    void KeyPressed(UINT key);
    void Replace(std::string_view text);
    std::size_t Room() const;
    void TellFull();
    void Insert(std::string_view text);
    bool DeleteFromSelection(int towards);
    int Neighbour(int position, int direction) const;
    void TellChange();

    EditPeer* m_edit = nullptr;
    char m_leadByte = 0;  // typed, and waiting for its trail byte
    std::size_t m_limit = 30000;
};

}  // namespace orvo
