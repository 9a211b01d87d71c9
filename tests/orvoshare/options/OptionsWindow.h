// A main window that hands out options, where it has any.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/options/DesktopOptionsOfMainWindow.h>
#include <platform/window/base/CWnd.h>

namespace orvo {

struct OptionsWindow : CWnd {
    COrvoDesktopOptions* options = nullptr;

    OptionsWindow() {
        Create(WS_POPUP, {0, 0, 9, 9}, nullptr, 0);
        AfxSetMainWnd(this);
    }
    ~OptionsWindow() override { AfxSetMainWnd(nullptr); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != 0xBECA || !options || wParam != 0) {
            return CWnd::WindowProc(message, wParam, lParam);
        }
        *PointerOf<COrvoDesktopOptions*>(lParam) = options;
        return 0;
    }
};

}  // namespace orvo
