// The weights of the ASCII characters under one collator.
// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/ucol.h>

#include <platform/text/Collation.h>

namespace orvo {

// As AsciiWeightsFor tells.
// Requires: a collator that doesn't tell the case of letters.
AsciiWeights MakeAsciiWeights(const UCollator& collator);

}  // namespace orvo
