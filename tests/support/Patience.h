// How long a test waits for what must come.
// SPDX-License-Identifier: MIT
#pragma once

namespace orvo {

// Milliseconds: more than the busiest machine needs, as only a test that fails waits them out.
constexpr int kPatience = 300'000;

}  // namespace orvo
