// A window that plays a message back and forth with one of another process.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/window/base/CWnd.h>
#include <platform/window/base/ForeignWindow.h>

namespace orvo {

// Sends WM_APP back as often as the argument says, and adds one each time.
class BouncingWindow : public CWnd {
public:
    BouncingWindow() { Create(0, {0, 0, 10, 10}, nullptr, 0); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_APP) return CWnd::WindowProc(message, wParam, lParam);
        if (lParam == 0) return 0;
        const WPARAM self = WParamOf(GlobalHandleOf(GetSafeHwnd()));
        return 1 + orvo::SendMessage(WindowOf(wParam), WM_APP, self, lParam - 1);
    }
};

}  // namespace orvo
