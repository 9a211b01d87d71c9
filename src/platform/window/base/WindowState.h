// What all windows share: handles, focus, the queue, the message that is being handled.
// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <memory>
#include <vector>

#include <platform/window/base/Handles.h>
#include <platform/window/base/WindowPeer.h>

namespace orvo {

class CWnd;

struct WindowState {
    HandleTable<HWND, CWnd> windows;
    HWND focus = nullptr;
    HWND mainWindow = nullptr;
    std::deque<MSG> queue;
    const MSG* current = nullptr;

    // A window may be destroyed by a handler that its own peer has called: the peer goes when the
    // outermost message has been handled.
    std::vector<std::unique_ptr<WindowPeer>> retiredPeers;

    static WindowState& Get();
};

}  // namespace orvo
