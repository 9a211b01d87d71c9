// How a to-do comes again, in words.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <contracts/RecordStore.h>
#include <platform/time/TimeZone.h>

namespace orvo {

// "every second Friday, 10 times": what a rule says (the value of an RRULE, also of vCalendar, or
// kOtherRecurrence), in the language of the module's texts, and for one that says more than these
// words can, the rule itself. `start` is the date from which the rule is counted, the start of the
// to-do or else its due date; nothing where it has neither.
// Returns:  UTF-8, the part of a sentence; empty for an empty rule.
std::string RepeatWords(std::string_view rule, const std::optional<CivilTime>& start);

// The same for the rule of a record, which is counted from its start or else its due date.
std::string RepeatWordsOf(const CToDoRecord& record);

}  // namespace orvo
