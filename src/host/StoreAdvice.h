// What the user can do where a store can't be opened or changed.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace orvo {

// The line, and behind it the way out in a terminal where it ends with a fault that has one.
std::string WithAdvice(std::string line);

}  // namespace orvo
