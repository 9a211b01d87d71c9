// How far the work on a whole store has come.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

namespace orvo {

// Called from time to time with how much of all is done. A function that returns false ends the
// work, which then has changed nothing.
using StoreProgress = std::function<bool(std::int64_t done, std::int64_t total)>;

}  // namespace orvo
