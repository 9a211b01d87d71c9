// Tests of asking the host for its options.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <orvoshare/options/DesktopOptionsOfMainWindow.h>
#include <platform/window/CWnd.h>
#include <platform/window/WindowFixture.h>

namespace orvo {
namespace {

class MainWindow : public CWnd {
public:
    MainWindow() {
        Create(0, {0, 0, 10, 10}, nullptr, 0);
        AfxSetMainWnd(this);
    }
    ~MainWindow() override { AfxSetMainWnd(nullptr); }

    COrvoDesktopOptions* options = nullptr;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != 0xBECA || options == nullptr || wParam != 0) {
            return CWnd::WindowProc(message, wParam, lParam);
        }
        *reinterpret_cast<COrvoDesktopOptions**>(lParam) = options;
        return 0;
    }
};

TEST(DesktopOptionsOfMainWindow, AreNoneWithoutAMainWindowOrAnAnswer) {
    const SystemInForce system;
    EXPECT_EQ(AskMainWindowForOptions(), nullptr);
    EXPECT_EQ(GetVerifyDatFileOption(), 0);

    const MainWindow window;
    EXPECT_EQ(AskMainWindowForOptions(), nullptr);
    EXPECT_EQ(GetVerifyDatFileOption(), 0);
}

TEST(DesktopOptionsOfMainWindow, AreTheObjectThatTheWindowHandsOut) {
    const SystemInForce system;
    COrvoDesktopOptions options;
    options.SetVerifyDatFileFlag(3);
    MainWindow window;
    window.options = &options;

    EXPECT_EQ(AskMainWindowForOptions(), &options);
    EXPECT_EQ(GetVerifyDatFileOption(), 3);
}

}  // namespace
}  // namespace orvo
