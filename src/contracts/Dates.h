// The limit of the dates that records hold.
// SPDX-License-Identifier: MIT
#pragma once

namespace orvo {

// 2038-01-19 03:14:07 UTC: the greatest date that a record accepts, which also stands for no date.
constexpr long kMaxDate = 0x7FFFFFFF;

}  // namespace orvo
