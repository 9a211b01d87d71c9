// What is measured of a window, in the order of measuring.
// SPDX-License-Identifier: MIT
#include "Figures.h"

#include <algorithm>

namespace orvo::bench {

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace orvo::bench
