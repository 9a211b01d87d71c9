// How days of people that come back each year read, in the language of the user.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <people/YearlyDays.h>

namespace orvo::desktop {

// Each of these requires a date that comes back.

// A day as the user's country writes it: "April 12, 1985", and "April 12" without a year.
QString DateText(const PersonDate& date);

// How soon it comes back: "today", "tomorrow", "in 137 days".
QString SoonText(const PersonDate& date, std::chrono::sys_days today);

// What is kept at its next day: "turns 41", "Anniversary (20 years)", and without years "Birthday"
// or "Anniversary".
QString OccasionText(const YearlyDay& day, std::chrono::sys_days today);

// A day with how soon it comes back and how many years it will have been: "April 12, 1985 (41
// years in 137 days)".
QString DayText(const PersonDate& date, std::chrono::sys_days today);

}  // namespace orvo::desktop
