// An application that tells how long a window takes to paint.
// SPDX-License-Identifier: MIT
#include "PaintWatch.h"

#include <QEventLoop>
#include <QTimer>

namespace orvo::bench {
namespace {

constexpr std::chrono::milliseconds kQuiet{30};

}  // namespace

bool PaintWatch::notify(QObject* receiver, QEvent* event) {
    const bool isPaint = event->type() == QEvent::Paint;
    ++m_depth;
    const bool isHandled = QApplication::notify(receiver, event);
    --m_depth;
    if (isPaint && m_isWatching && receiver == (m_other ? m_other : m_target()))
        m_isPainting = true;
    // The outermost event has also sent to the screen what was painted in it.
    if (m_isPainting && m_depth == 0) {
        m_painted = Clock::now();
        m_isPainting = false;
        m_isWatching = false;
        if (m_waiting) m_waiting->quit();
    }
    return isHandled;
}

std::optional<double> PaintWatch::TimeToPaint(const std::function<void()>& act,
                                              std::chrono::milliseconds patience,
                                              std::optional<Clock::time_point> start) {
    m_isWatching = true;
    if (!start) start = Clock::now();
    act();
    if (m_isWatching) Run(patience);
    if (std::exchange(m_isWatching, false)) return {};
    return std::chrono::duration<double, std::milli>(m_painted - *start).count();
}

void PaintWatch::Settle() {
    Run(kQuiet);
}

// A timer that runs out during a long event doesn't hide the paint that waits behind it.
void PaintWatch::Run(std::chrono::milliseconds time) {
    QEventLoop loop;
    m_waiting = &loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
    if (m_isWatching) processEvents();
    m_waiting = nullptr;
}

}  // namespace orvo::bench
