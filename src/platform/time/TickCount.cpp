// A clock for short waits.
// SPDX-License-Identifier: MIT
#include <chrono>
#include <utility>

#include <platform/time/TickCount.h>

namespace orvo {
namespace {

std::function<std::uint32_t()>& Clock() {
    static std::function<std::uint32_t()> clock;
    return clock;
}

}  // namespace

std::uint32_t GetTickCount() {
    if (Clock()) return Clock()();
    using std::chrono::milliseconds;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<milliseconds>(now).count());
}

void SetTickClock(std::function<std::uint32_t()> clock) {
    Clock() = std::move(clock);
}

}  // namespace orvo
