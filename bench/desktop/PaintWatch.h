// An application that tells how long a window takes to paint.
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <chrono>
#include <functional>
#include <optional>

class QEventLoop;

namespace orvo::bench {

using Clock = std::chrono::steady_clock;

class PaintWatch : public QApplication {
public:
    // Of the watched widget; asked at each paint, as it may be another one after a change of mode.
    using Target = std::function<const QObject*()>;

    PaintWatch(int& count, char** arguments, Target target)
        : QApplication(count, arguments), m_target(std::move(target)) {}

    // Does something and waits until the target has been painted after it, and sent to the screen.
    // Gives:  milliseconds from `start`; nothing where it wasn't painted in the time of `patience`
    //         after what was done.
    std::optional<double> TimeToPaint(const std::function<void()>& act,
                                      std::chrono::milliseconds patience,
                                      std::optional<Clock::time_point> start = {});

    // From now on that widget is the target; with null the usual one.
    void Watch(const QObject* target) { m_other = target; }

    // Handles all events until none has come for a moment.
    void Settle();

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void Run(std::chrono::milliseconds time);

    Target m_target;
    const QObject* m_other = nullptr;
    QEventLoop* m_waiting = nullptr;
    int m_depth = 0;
    bool m_isWatching = false;
    bool m_isPainting = false;  // the target has been painted, in an event that isn't done yet
    Clock::time_point m_painted;
};

}  // namespace orvo::bench
