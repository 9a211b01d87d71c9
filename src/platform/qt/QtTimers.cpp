// The timers of windows, which the event loop lets tick.
// SPDX-License-Identifier: MIT
#include <QTimerEvent>
#include <algorithm>
#include <limits>

#include <platform/qt/QtTimers.h>
#include <platform/window/base/WindowInput.h>

namespace orvo {

void QtTimers::Start(HWND window, UINT_PTR id, UINT milliseconds) {
    constexpr UINT kLongest = std::numeric_limits<int>::max();
    Stop(window, id);
    const int step = static_cast<int>(std::clamp(milliseconds, 1U, kLongest));
    m_timers.push_back({startTimer(step), window, id});
}

bool QtTimers::Stop(HWND window, UINT_PTR id) {
    const auto found = std::find_if(m_timers.begin(), m_timers.end(), [&](const Timer& timer) {
        return timer.window == window && timer.id == id;
    });
    if (found == m_timers.end()) return false;
    killTimer(found->number);
    m_timers.erase(found);
    return true;
}

void QtTimers::timerEvent(QTimerEvent* event) {
    const auto found = std::find_if(m_timers.begin(), m_timers.end(), [&](const Timer& timer) {
        return timer.number == event->timerId();
    });
    if (found != m_timers.end()) HandleInput({found->window, WM_TIMER, found->id, 0});
}

}  // namespace orvo
