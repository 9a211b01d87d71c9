// The tests of windows on the screen run on a screen that isn't there, unless one is asked for; the
// suites of all peers run on them, too.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <contract/PeerSystem.h>
#include <platform/qt/QtWindowSystem.h>
#include <support/Patience.h>

namespace orvo {

std::unique_ptr<WindowSystem> MakeWindowSystem() {
    return std::make_unique<QtWindowSystem>();
}

bool RunUntil(WindowSystem&, const std::function<bool()>& isDone) {
    return QTest::qWaitFor(isDone, kPatience);
}

}  // namespace orvo

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
