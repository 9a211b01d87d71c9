// The timers of windows, which the event loop lets tick.
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <vector>

#include <platform/window/base/Messages.h>

namespace orvo {

class QtTimers : public QObject {
public:
    // As WindowSystem's.
    void Start(HWND window, UINT_PTR id, UINT milliseconds);
    bool Stop(HWND window, UINT_PTR id);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Timer {
        int number = 0;  // Qt's
        HWND window = nullptr;
        UINT_PTR id = 0;
    };

    std::vector<Timer> m_timers;
};

}  // namespace orvo
