// How much a store holds.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace orvo {

// Without deleted entries.
struct StoreCounts {
    std::int64_t addresses = 0;
    std::int64_t toDos = 0;
};

}  // namespace orvo
