// The peers on the screen keep the contract of peers.
// SPDX-License-Identifier: MIT
#include <contract/PeerContract.h>
#include <platform/qt/QtWindowSystem.h>

namespace orvo {

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, ListPeerContract, QtWindowSystem);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, EditPeerContract, QtWindowSystem);

}  // namespace orvo
