// Both windows measured on stores of several sizes, and the table of it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orvo::bench {

struct Plan {
    std::size_t people;
    int runs;  // of each window; their medians are told
};

// Runs `program`, this one, for each measurement on a display of its own, and prints the tables.
// Fails:  std::exception where a measurement breaks down.
void CompareWindows(const std::string& program, const std::vector<Plan>& plans);

}  // namespace orvo::bench
