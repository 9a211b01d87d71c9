// How the rows of a list control are painted.
// SPDX-License-Identifier: MIT
#include <platform/window/base/WindowSystem.h>
#include <platform/window/list/ListPeer.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

void ListPeer::PaintRows(CDC& dc) {
    const CSize client = ClientSize();
    dc.FillSolidRect({0, 0, client.cx, client.cy}, GetSysColor(COLOR_WINDOW));
    // Its own copy, as whoever paints may also take the list away.
    const TextMarks marks = m_marks;
    dc.MarkTexts(&marks);
    for (const int row : VisibleRows()) {
        CRect bounds;
        // Whoever paints may also take rows away, or the window.
        if (!m_client || !RowRect(row, RowPart::Bounds, bounds)) continue;
        if (dc.RectVisible(bounds)) m_client->DrawRow(dc, row, bounds);
    }
    dc.MarkTexts(nullptr);
}

}  // namespace orvo
