// For how long the window may read what it needs, without making anybody wait.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace orvo::desktop {

// Before rows show or a letter is answered, and bit by bit between other things.
constexpr std::chrono::milliseconds kReadAtOnce{40};
constexpr std::chrono::milliseconds kReadInAMoment{10};

}  // namespace orvo::desktop
