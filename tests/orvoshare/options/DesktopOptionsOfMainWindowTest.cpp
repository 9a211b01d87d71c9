// Tests of asking the host for its options.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <orvoshare/options/OptionsWindow.h>
#include <platform/window/WindowFixture.h>

namespace orvo {
namespace {

TEST(DesktopOptionsOfMainWindow, AreTheObjectThatTheWindowHandsOutIfAny) {
    const SystemInForce system;
    EXPECT_EQ(AskMainWindowForOptions(), nullptr);
    EXPECT_EQ(GetVerifyDatFileOption(), 0);

    OptionsWindow window;
    EXPECT_EQ(AskMainWindowForOptions(), nullptr) << "no answer";
    EXPECT_EQ(GetVerifyDatFileOption(), 0);

    COrvoDesktopOptions options;
    options.SetVerifyDatFileFlag(3);
    window.options = &options;
    EXPECT_EQ(AskMainWindowForOptions(), &options);
    EXPECT_EQ(GetVerifyDatFileOption(), 3);
}

}  // namespace
}  // namespace orvo
