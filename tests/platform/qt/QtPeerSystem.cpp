// The suites of all peers on the peers of the screen.
// SPDX-License-Identifier: MIT
#include <QTest>

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
