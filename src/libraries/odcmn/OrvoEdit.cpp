// The edit control of the desktop library.
// SPDX-License-Identifier: MIT
#include <contracts/OrvoEdit.h>

namespace orvo {

const MessageMap& COrvoEdit::ThisMap() {
    static const MessageMap map{CEdit::ThisMap(),
                                {On<WM_KEYDOWN>(&COrvoEdit::OnKeyDown),
                                 OnCommand(ID_EDIT_DELETE, &COrvoEdit::OnEditDelete)}};
    return map;
}

void COrvoEdit::Paste() {
    SendMessage(WM_PASTE);
}

void COrvoEdit::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    CEdit::OnKeyDown(key, repeat, flags);
}

void COrvoEdit::OnEditDelete() {
    COrvoEdit::OnKeyDown(VK_DELETE, 1, 0);
}

}  // namespace orvo
