// The weights of the ASCII characters under one collator.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

#include <unicode/ucol.h>

namespace orvo {

// As AsciiWeightsFor says.
// Requires: a collator that doesn't tell the case of letters.
std::array<std::uint8_t, 128> MakeAsciiWeights(const UCollator& collator);

}  // namespace orvo
