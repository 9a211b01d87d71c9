// What other processes send, served while Qt's event loop runs.
// SPDX-License-Identifier: MIT
#include <platform/ipc/Waiting.h>
#include <platform/qt/QtWaiting.h>

namespace orvo {
namespace {

// Then it is the window's turn again, so that no flood of messages stops it; the rest stays ready.
constexpr int kMostAtOnce = 16;

void ServeSome() {
    for (int served = 0; served < kMostAtOnce && ServeSources(0); ++served) {
    }
}

}  // namespace

QtWaiting::QtWaiting() : m_notifier(WaitDescriptor(), QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [] { ServeSome(); });
}

}  // namespace orvo
