// CEdit: one line of text that the user can change.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>

#include <platform/text/CodePage.h>
#include <platform/text/MultiByte.h>
#include <platform/text/Utf8.h>
#include <platform/window/base/WindowInput.h>
#include <platform/window/base/WindowSystem.h>
#include <platform/window/edit/CEdit.h>

namespace orvo {

CEdit::~CEdit() {
    DestroyWindow();
}

std::unique_ptr<WindowPeer> CEdit::MakePeer(WindowSystem& system, const PeerPlace& place) {
    return system.MakeEditPeer(place);
}

bool CEdit::TakePeer(WindowPeer& peer) {
    m_edit = dynamic_cast<EditPeer*>(&peer);
    return m_edit != nullptr;
}

void CEdit::GetSel(int& first, int& last) const {
    const EditSelection selection = m_edit ? m_edit->Selection() : EditSelection();
    first = selection.First();
    last = selection.Last();
}

void CEdit::SetSel(int first, int last, BOOL scrolls) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(first), last);
    if (scrolls) SendMessage(EM_SCROLLCARET);
}

void CEdit::ReplaceSel(const CString& text) {
    SendMessage(EM_REPLACESEL, 0, LParamOf(static_cast<const char*>(text)));
}

LRESULT CEdit::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (m_edit && (AnswerEdit(message, wParam, lParam, result) || AnswerClipboard(message) ||
                   AnswerInput(message, wParam, lParam))) {
        return result;
    }
    return CWnd::DefWindowProc(message, wParam, lParam);
}

LRESULT CEdit::CopySelection(WPARAM first, LPARAM last) const {
    const EditSelection selection = m_edit->Selection();
    if (first != 0) *reinterpret_cast<DWORD*>(first) = static_cast<DWORD>(selection.First());
    if (last != 0) *PointerOf<DWORD>(last) = static_cast<DWORD>(selection.Last());
    constexpr int kLargest = 0xFFFF;
    return selection.Last() > kLargest ? -1 : MAKELPARAM(selection.First(), selection.Last());
}

void CEdit::Select(int first, int last) {
    m_leadByte = 0;
    const int end = m_edit->Text().GetLength();
    if (first < 0) {
        const int caret = m_edit->Selection().caret;
        m_edit->Select({caret, caret});
    } else {
        m_edit->Select({first, last < 0 ? end : last});
    }
}

bool CEdit::AnswerEdit(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case EM_GETSEL:
            result = CopySelection(wParam, lParam);
            return true;
        case EM_SETSEL:
            Select(static_cast<int>(wParam), static_cast<int>(lParam));
            return true;
        case EM_SCROLLCARET:
            m_edit->ScrollToCaret();
            result = 1;
            return true;
        case EM_REPLACESEL:
            Replace(CString(PointerOf<const char>(lParam)).View());
            return true;
        case EM_LIMITTEXT:
            m_limit = wParam;
            return true;
        case WM_SETTEXT:
            m_leadByte = 0;
            m_edit->SetText(PointerOf<const char>(lParam));
            TellChange();
            result = 1;
            return true;
        default:
            return false;
    }
}

bool CEdit::AnswerClipboard(UINT message) {
    switch (message) {
        case WM_CLEAR:
            if (!m_edit->Selection().IsEmpty()) Replace({});
            return true;
        case WM_COPY:
            CopyText();
            return true;
        case WM_CUT:
            if (CopyText()) Replace({});
            return true;
        case WM_PASTE:
            PasteText();
            return true;
        default:
            return false;
    }
}

// False, and the clipboard stays as it is, where nothing is selected.
bool CEdit::CopyText() const {
    const EditSelection selection = m_edit->Selection();
    if (selection.IsEmpty()) return false;
    WindowSystem::Current().SetClipboardText(
        m_edit->Text().Mid(selection.First(), selection.Last() - selection.First()));
    return true;
}

void CEdit::PasteText() {
    constexpr std::string_view kLineEnds("\r\n\0", 3);
    const CString clipboard = WindowSystem::Current().ClipboardText();
    const std::string_view line =
        clipboard.View().substr(0, clipboard.View().find_first_of(kLineEnds));
    const std::size_t length = CutLength(CodePage::System(), line, Room(), false);
    if (length > 0) Replace(line.substr(0, length));
    if (length < line.size()) TellFull();
}

bool CEdit::AnswerInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CHAR:
            CharacterTyped(static_cast<UINT>(wParam));
            return true;
        case WM_KEYDOWN:
            KeyPressed(static_cast<UINT>(wParam));
            return true;
        case WM_LBUTTONDOWN:
            SetFocus();
            return true;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            m_leadByte = 0;
            CommandToParent(message == WM_SETFOCUS ? EN_SETFOCUS : EN_KILLFOCUS);
            return true;
        case WM_SETCURSOR:
            if (LOWORD(static_cast<unsigned long>(lParam)) != HTCLIENT) return false;
            SetCursor(LoadStandardCursor(IDC_IBEAM));
            return true;
        default:
            return false;
    }
}

void CEdit::TellChange() {
    CommandToParent(EN_UPDATE);
    CommandToParent(EN_CHANGE);
}

void CEdit::Replace(std::string_view text) {
    m_leadByte = 0;
    m_edit->ReplaceSelection(text);
    TellChange();
}

// The bytes that may still come in place of the selection.
std::size_t CEdit::Room() const {
    const EditSelection selection = m_edit->Selection();
    const int kept = m_edit->Text().GetLength() - (selection.Last() - selection.First());
    return m_limit - std::min(m_limit, static_cast<std::size_t>(kept));
}

void CEdit::TellFull() {
    m_leadByte = 0;
    MessageBeep(MB_OK);
    CommandToParent(EN_MAXTEXT);
}

void CEdit::Insert(std::string_view text) {
    if (text.size() > Room()) {
        TellFull();
    } else {
        Replace(text);
    }
}

// The start of the character before, or the end of the one behind a position.
int CEdit::Neighbour(int position, int direction) const {
    const CString text = m_edit->Text();
    const CodePage& page = CodePage::System();
    int start = 0;
    while (start < text.GetLength()) {
        const auto rest = text.View().substr(static_cast<std::size_t>(start));
        const int end = start + static_cast<int>(page.CharacterLength(rest));
        if (direction < 0 && end >= position) return start;
        if (direction > 0 && start >= position) return end;
        start = end;
    }
    return std::min(position, text.GetLength());
}

bool CEdit::DeleteFromSelection(int towards) {
    const EditSelection selection = m_edit->Selection();
    if (selection.IsEmpty()) {
        const int other = Neighbour(selection.caret, towards);
        if (other == selection.caret) return false;
        m_edit->Select({selection.caret, other});
    }
    Replace({});
    return true;
}

bool CEdit::ControlTyped(UINT character) {
    constexpr UINT kControlA = 1;
    constexpr UINT kControlC = 3;
    constexpr UINT kControlV = 22;
    constexpr UINT kControlX = 24;
    switch (character) {
        case kControlA:
            SetSel(0, -1, 0);
            return true;
        case kControlC:
            SendMessage(WM_COPY);
            return true;
        case kControlV:
            SendMessage(WM_PASTE);
            return true;
        case kControlX:
            SendMessage(WM_CUT);
            return true;
        default:
            return false;
    }
}

void CEdit::CharacterTyped(UINT character) {
    constexpr UINT kFirstPrintable = 0x20;
    constexpr UINT kDelete = 0x7F;
    if (ControlTyped(character)) return;
    if (character == VK_BACK && m_leadByte == 0) {
        DeleteFromSelection(-1);
        return;
    }
    if (character < kFirstPrintable || character == kDelete) {
        m_leadByte = 0;
        return;
    }
    const CodePage& page = CodePage::System();
    std::string bytes;
    if (page.Number() == kUtf8CodePage) {
        AppendCodePoint(character, bytes);
        Insert(bytes);
        return;
    }
    if (character > 0xFF) bytes += static_cast<char>(character >> 8);
    if (m_leadByte != 0) bytes += m_leadByte;
    bytes += static_cast<char>(character);
    if (bytes.size() == 1 && page.IsLeadByte(static_cast<unsigned char>(character))) {
        m_leadByte = static_cast<char>(character);
        return;
    }
    m_leadByte = 0;
    // A lead byte whose trail byte doesn't fit stands for nothing and is left out.
    if (page.CharacterLength(bytes) != bytes.size()) bytes.erase(0, bytes.size() - 1);
    Insert(bytes);
}

void CEdit::KeyPressed(UINT key) {
    const EditSelection selection = m_edit->Selection();
    int caret = selection.caret;
    const bool extends = WindowSystem::Current().IsKeyDown(VK_SHIFT);
    switch (key) {
        case VK_DELETE:
            DeleteFromSelection(1);
            return;
        case VK_LEFT:
            caret = selection.IsEmpty() || extends ? Neighbour(caret, -1) : selection.First();
            break;
        case VK_RIGHT:
            caret = selection.IsEmpty() || extends ? Neighbour(caret, 1) : selection.Last();
            break;
        case VK_HOME:
            caret = 0;
            break;
        case VK_END:
            caret = m_edit->Text().GetLength();
            break;
        default:
            return;
    }
    m_leadByte = 0;
    m_edit->Select({extends ? selection.anchor : caret, caret});
    m_edit->ScrollToCaret();
}

}  // namespace orvo
