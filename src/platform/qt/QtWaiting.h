// What other processes send, served while Qt's event loop runs.
// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <platform/Export.h>

namespace orvo {

// While it lives, messages and calls of other processes are served from whichever loop of Qt's
// runs, also from that of a menu or a question. The application object is there.
class ORVO_API QtWaiting {
public:
    QtWaiting();

private:
    QSocketNotifier m_notifier;
};

}  // namespace orvo
