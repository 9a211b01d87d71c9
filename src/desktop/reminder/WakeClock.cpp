// When it is, and a call at a moment to come.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <ctime>
#include <sys/timerfd.h>
#include <unistd.h>

#include <desktop/reminder/WakeClock.h>
#include <platform/time/CTime.h>

namespace orvo::desktop {
namespace {

// Far enough, and within what the system's timers take.
constexpr std::int64_t kLongestSleep = 366L * 24 * 60 * 60;

}  // namespace

// A timer of the calendar's clock runs out at the moment that was asked for however long the system
// was suspended, and ends early where somebody sets the clock.
SystemClock::SystemClock()
    : m_timer(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK)),
      m_notifier(std::make_unique<QSocketNotifier>(m_timer.Number(), QSocketNotifier::Read)) {
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        std::uint64_t count = 0;
        // It fails where the clock was set, which is news as well.
        static_cast<void>(!read(m_timer.Number(), &count, sizeof count));
        if (m_listener) m_listener();
    });
}

std::int64_t SystemClock::Now() const {
    return CTime::GetCurrentTime().GetTime();
}

void SystemClock::WakeAt(std::optional<std::int64_t> moment) {
    const std::int64_t wait = moment ? *moment - Now() : kLongestSleep;
    itimerspec time{};
    time.it_value.tv_sec = std::time(nullptr) + std::clamp<std::int64_t>(wait, 0, kLongestSleep);
    timerfd_settime(m_timer.Number(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &time, nullptr);
}

}  // namespace orvo::desktop
