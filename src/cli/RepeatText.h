// How a to-do is to come again, as it stands on a command line.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include <exchange/calendar/RepeatRule.h>

namespace orvo::cli {

// Reads "weekly on mon,fri until 2027-06-30", "every 3 days, 10 times" and their like; nothing for
// "none". An UNTIL is a day.
// Fails:    CommandError, wrong use, which says what isn't understood and what would be.
std::optional<RepeatRule> ReadRepeat(const std::string& text);

}  // namespace orvo::cli
