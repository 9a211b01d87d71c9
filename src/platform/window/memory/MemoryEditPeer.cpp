// An edit control without a screen.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <platform/text/CodePage.h>
#include <platform/window/memory/MemoryEditPeer.h>

namespace orvo {

int MemoryEditPeer::WholeCharacters(int position) const {
    const int inside = std::clamp(position, 0, m_text.GetLength());
    return static_cast<int>(
        CutLength(CodePage::System(), m_text.View(), static_cast<std::size_t>(inside), false));
}

void MemoryEditPeer::SetText(const CString& text) {
    m_text = text;
    m_selection = {};
    AddInvalid({0, 0, m_place.Width(), m_place.Height()});
}

void MemoryEditPeer::Select(EditSelection selection) {
    m_selection = {WholeCharacters(selection.anchor), WholeCharacters(selection.caret)};
}

void MemoryEditPeer::ReplaceSelection(std::string_view text) {
    const auto first = static_cast<std::size_t>(m_selection.First());
    const auto last = static_cast<std::size_t>(m_selection.Last());
    m_text.Bytes().replace(first, last - first, text);
    const int end = static_cast<int>(first + text.size());
    m_selection = {end, end};
    AddInvalid({0, 0, m_place.Width(), m_place.Height()});
}

}  // namespace orvo
