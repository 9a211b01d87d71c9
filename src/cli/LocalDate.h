// Days and times as they stand on a command line.
// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace orvo::cli {

// The start of a day, in local time: an ISO date ("2026-12-24"), or a date as the locale writes it
// short.
// Fails:    CommandError, wrong use, naming the option, where the text is no date or lies outside
//           of what a record holds.
std::time_t DayOfText(const std::string& text, const char* option);

// The place in the menu of dates (DateChoice) of "today", "tomorrow", "week" and "none"; nothing
// for any other word.
std::optional<int> DateChoiceOfText(std::string_view text);

// A local time: an ISO date, alone or with "T" and hours, minutes, and seconds or not.
// Fails:    CommandError, wrong use.
std::time_t TimeOfText(const std::string& text, const char* option);

}  // namespace orvo::cli
