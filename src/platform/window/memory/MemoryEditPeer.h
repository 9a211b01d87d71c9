// An edit control without a screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/window/edit/EditPeer.h>
#include <platform/window/memory/MemoryWindowPeer.h>

namespace orvo {

class ORVO_API MemoryEditPeer : public MemoryPeer<EditPeer> {
public:
    using MemoryPeer<EditPeer>::MemoryPeer;

    void SetText(const CString& text) override;
    EditSelection Selection() const override { return m_selection; }
    void Select(EditSelection selection) override;
    void ReplaceSelection(std::string_view text) override;
    void ScrollToCaret() override {}

private:
    int WholeCharacters(int position) const;

    EditSelection m_selection;
};

}  // namespace orvo
