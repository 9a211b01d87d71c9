// What became of a rescue.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orvo {

struct RescueReport {
    std::int64_t addresses = 0;  // rescued, deleted ones among them
    std::int64_t toDos = 0;
    std::vector<std::string> lost;  // what couldn't be read, a line each
};

}  // namespace orvo
