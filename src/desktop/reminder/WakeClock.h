// When it is, and a call at a moment to come.
// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include <platform/io/Descriptor.h>

namespace orvo::desktop {

// Moments are seconds since 1970-01-01 UTC.
class WakeClock {
public:
    virtual ~WakeClock() = default;

    virtual std::int64_t Now() const = 0;

    // Calls the listener once that moment has come, also where the system slept through it, and
    // where somebody sets the clock. A later call takes the place of an earlier one; without a
    // moment only a clock that is set leads to a call.
    virtual void WakeAt(std::optional<std::int64_t> moment) = 0;

    void SetListener(std::function<void()> listener) { m_listener = std::move(listener); }

protected:
    std::function<void()> m_listener;
};

// The clock of the system, or the one that stands in its place (CTime::SetClock).
class SystemClock : public WakeClock {
public:
    SystemClock();

    std::int64_t Now() const override;
    void WakeAt(std::optional<std::int64_t> moment) override;

private:
    Descriptor m_timer;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}  // namespace orvo::desktop
