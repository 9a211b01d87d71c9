// A list without a screen: rows and columns with a geometry that can be told in advance.
// SPDX-License-Identifier: MIT
#include <platform/window/memory/MemoryListPeer.h>

namespace orvo {

namespace {

// The heading takes its width from the list, whenever it is asked.
class MemoryHeadingPeer : public MemoryWindowPeer {
public:
    using MemoryWindowPeer::MemoryWindowPeer;

    CRect Place() const override { return {0, 0, m_parent->ClientSize().cx, m_place.Height()}; }
    CSize ClientSize() const override { return Place().Size(); }
};

}  // namespace

MemoryListPeer::MemoryListPeer(const PeerPlace& place) : MemoryPeer<RowListPeer>(place) {
    SetUp(place, {});
}

CRect MemoryListPeer::RowsArea() const {
    const int top = IsReport() ? Metrics().headingHeight : 0;
    return {0, top, m_place.Width(), m_place.Height()};
}

void MemoryListPeer::ScrollToLine(int line) {
    if (line == m_topLine) return;
    m_topLine = line;
    InvalidateAll();
}

std::unique_ptr<WindowPeer> MemoryListPeer::MakeHeadingPeer() {
    return std::make_unique<MemoryHeadingPeer>(
        PeerPlace{this, {0, 0, 0, Metrics().headingHeight}, 0});
}

}  // namespace orvo
