// Recurrence rules of vCalendar, such as "W2 MO FR #10", and those of iCalendar.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvo {

// The value of an RRULE of the other format.
// Returns:  nothing where that format can't say it.
std::optional<std::string> RuleOfOldRule(std::string_view oldRule);
std::optional<std::string> OldRuleOfRule(std::string_view rule);

}  // namespace orvo
