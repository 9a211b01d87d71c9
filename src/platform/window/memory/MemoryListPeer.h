// A list without a screen: rows and columns with a geometry that is known in advance.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <platform/window/list/RowListPeer.h>
#include <platform/window/memory/MemoryWindowPeer.h>

namespace orvo {

class ORVO_API MemoryListPeer : public MemoryPeer<RowListPeer> {
public:
    explicit MemoryListPeer(const PeerPlace& place);

    std::unique_ptr<WindowPeer> MakeHeadingPeer() override;

protected:
    CRect RowsArea() const override;
    int TopLine() const override { return m_topLine; }
    void ScrollToLine(int line) override;

private:
    int m_topLine = 0;
};

}  // namespace orvo
