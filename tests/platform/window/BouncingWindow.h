// A window that plays a message back and forth with one of another process, and takes its data.
// SPDX-License-Identifier: MIT
#pragma once

#include <numeric>

#include <platform/window/base/CWnd.h>
#include <platform/window/base/ForeignWindow.h>

namespace orvo {

// Sends WM_APP back as often as the argument says, and adds one each time; of data it gives the sum
// of number and bytes.
struct BouncingWindow : CWnd {
    BouncingWindow() { Create(0, {0, 0, 10, 10}, nullptr, 0); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_COPYDATA) {
            const auto& data = *PointerOf<COPYDATASTRUCT>(lParam);
            const auto* bytes = static_cast<const unsigned char*>(data.lpData);
            if ((bytes == nullptr) != (data.cbData == 0)) return -1;
            return std::accumulate(bytes, bytes + data.cbData, static_cast<LRESULT>(data.dwData));
        }
        if (message != WM_APP) return CWnd::WindowProc(message, wParam, lParam);
        if (lParam == 0) return 0;
        const WPARAM self = WParamOf(GlobalHandleOf(GetSafeHwnd()));
        return 1 + orvo::SendMessage(WindowOf(wParam), WM_APP, self, lParam - 1);
    }
};

}  // namespace orvo
