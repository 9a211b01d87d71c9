// What stands behind an edit control.
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <platform/window/base/WindowPeer.h>

namespace orvo {

// Positions are byte offsets into the text in the system's code page, always between two whole
// characters. The caret stands at `caret`; the selection reaches from there to `anchor`.
struct EditSelection {
    int anchor = 0;
    int caret = 0;

    int First() const { return anchor < caret ? anchor : caret; }
    int Last() const { return anchor < caret ? caret : anchor; }
    bool IsEmpty() const { return anchor == caret; }

    friend bool operator==(const EditSelection&, const EditSelection&) = default;
};

// One line of text. A peer doesn't report what it is asked to do; text that the user enters without
// messages (by an input method, by a drop) reaches it as WM_CHAR through its window. SetText puts
// the caret at the start.
class EditPeer : public WindowPeer {
public:
    virtual EditSelection Selection() const = 0;

    // A position inside a character goes back to its start, one outside the text to its nearest
    // end.
    virtual void Select(EditSelection selection) = 0;

    // The caret then stands behind the new text.
    virtual void ReplaceSelection(std::string_view text) = 0;
    virtual void ScrollToCaret() = 0;
};

}  // namespace orvo
