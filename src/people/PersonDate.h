// Birthdays and other days that come back each year.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace orvo {

// A day of the Gregorian calendar, of which the card may leave the year or the day out.
struct PersonDate {
    int year = 0;   // 1 to 9999; 0 where it isn't told
    int month = 0;  // 1 to 12; 0 where it isn't told
    int day = 0;    // 1 to 31; 0 where it isn't told

    bool ComesBack() const { return month != 0 && day != 0; }
    bool operator==(const PersonDate&) const = default;
};

// Reads the dates of vCard (RFC 6350, 4.3.1, and RFC 2426): "19850412", "1985-04-12T23:20:50Z",
// "--0412", "---12", "1985-04", "1985".
// Returns:  nothing for any other text, and for a day that doesn't exist.
std::optional<PersonDate> ReadPersonDate(std::string_view text);

// "1985-04-12", "--04-12", "1985-04", "1985", "---12".
std::string FormatPersonDate(const PersonDate& date);

// The local day, as CTime tells it.
std::chrono::sys_days Today();

// The first day from `today` on at which it comes back. A leap day is kept at the last day of
// February in years that lack it.
// Requires: the date comes back.
std::chrono::sys_days NextDay(const PersonDate& date, std::chrono::sys_days today);

// The years that it will have been at its next day; nothing without a year, and for a year that is
// still to come.
std::optional<int> YearsAtNextDay(const PersonDate& date, std::chrono::sys_days today);

}  // namespace orvo
