// What the user can do where a store can't be opened or changed.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace orvo {

// The line, and behind it the way out in a terminal where it ends with a fault that has one. Of a
// damaged store `store` names the file whose automatic backups are looked at.
std::string WithAdvice(std::string line, const std::string& store);

}  // namespace orvo
