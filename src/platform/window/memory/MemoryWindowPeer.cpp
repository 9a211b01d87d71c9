// Windows without a screen: what is to be painted.
// SPDX-License-Identifier: MIT
#include <platform/window/base/CWnd.h>
#include <platform/window/memory/MemoryWindowPeer.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

void MemoryWindowState::AddInvalid(const CRect& area) {
    const CRect client{0, 0, m_place.Width(), m_place.Height()};
    CRect visible;
    visible.IntersectRect(area, client);
    m_invalid.UnionRect(m_invalid, visible);
}

void MemoryWindowState::PaintInvalid(HWND handle) {
    if (!m_redraws || !m_isShown || m_invalid.IsRectEmpty()) return;
    m_invalid.SetRectEmpty();
    RecordingCanvas canvas(m_recording);
    CDC dc(canvas);
    SendMessage(handle, WM_PAINT, reinterpret_cast<WPARAM>(&dc));
}

}  // namespace orvo
