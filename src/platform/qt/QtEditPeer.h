// An edit control on the screen: Qt's line edit, whose text changes only as it is asked to.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/qt/QtPeer.h>
#include <platform/window/edit/EditPeer.h>

namespace orvo {

// The line edit holds text and selection, counted in its own UTF-16 units. It handles what the
// mouse does to caret and selection; keys and text are the window's.
class QtEditPeer : public QtPeer<EditPeer> {
public:
    QtEditPeer(QtInputState& input, const PeerPlace& place);

    CString Text() const override;
    void SetText(const CString& text) override;
    EditSelection Selection() const override;
    void Select(EditSelection selection) override;
    void ReplaceSelection(std::string_view text) override;
    void ScrollToCaret() override {}  // Qt always shows the caret

private:
    class Line;
    QtEditPeer(Line& line, const PeerPlace& place);
    Line* TheLine() const;
};

}  // namespace orvo
