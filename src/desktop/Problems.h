// What goes wrong, on standard error.
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace orvo::desktop {

// Writes one line behind the program's name. The text is UTF-8.
void PrintProblem(std::string_view problem);

}  // namespace orvo::desktop
