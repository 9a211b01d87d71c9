// A window that writes down what the controls in it tell.
// SPDX-License-Identifier: MIT
#pragma once

#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <platform/window/base/CWnd.h>

namespace orvo {

class OwnerWindow : public CWnd {
public:
    std::vector<UINT> told;      // commands of menus and views, and messages of their own
    std::vector<UINT> notified;  // by WM_NOTIFY

    std::vector<UINT> TakeTold() { return std::exchange(told, {}); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const bool isCommand = message == WM_COMMAND && HIWORD(wParam) == 0;
        if (isCommand || message >= WM_APP) {
            EXPECT_EQ(lParam, 0);
            told.push_back(isCommand ? LOWORD(wParam) : message);
        }
        if (message == WM_NOTIFY) notified.push_back(PointerOf<NMHDR>(lParam)->code);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

}  // namespace orvo
