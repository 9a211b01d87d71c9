// What goes wrong, on standard error.
// SPDX-License-Identifier: MIT
#include <cstdio>

#include <fmt/format.h>

#include <desktop/Problems.h>

namespace orvo::desktop {

void PrintProblem(std::string_view problem) {
    fmt::print(stderr, "orvo-desktop: {}\n", problem);
}

}  // namespace orvo::desktop
