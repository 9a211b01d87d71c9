// A clock for short waits.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include <platform/Export.h>

namespace orvo {

// Milliseconds since some moment before the program began; after 49 days it starts again from 0.
ORVO_API std::uint32_t GetTickCount();

// Replaces the clock of GetTickCount for this process; an empty function brings the real one back.
// For hosts and tests that don't wait.
ORVO_API void SetTickClock(std::function<std::uint32_t()> clock);

}  // namespace orvo
