// The peers on the screen keep the contract of peers.
// SPDX-License-Identifier: MIT
#include <QTest>

#include <contract/PeerContract.h>
#include <contract/TimerContract.h>
#include <platform/qt/QtWindowSystem.h>
#include <support/Patience.h>

namespace orvo {

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, ListPeerContract, QtWindowSystem);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, EditPeerContract, QtWindowSystem);

struct QtClock {
    using System = QtWindowSystem;
    static bool Run(System&, const std::function<bool()>& isDone) {
        return QTest::qWaitFor(isDone, kPatience);
    }
};
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, TimerContract, QtClock);

}  // namespace orvo
