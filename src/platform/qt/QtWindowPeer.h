// A plain window on the screen: a widget that paints nothing by itself.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/qt/QtPeer.h>

namespace orvo {

class QtWindowPeer : public QtPeer<WindowPeer> {
public:
    QtWindowPeer(QtInputState& input, const PeerPlace& place);

    void SetPlace(const CRect& place) override;

private:
    class Window;
    QtWindowPeer(Window& window, const PeerPlace& place);
};

}  // namespace orvo
