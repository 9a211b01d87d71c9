// Which to-dos the user is to be reminded of.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <contracts/StoreEngine.h>
#include <orvoshare/options/DesktopOptions.h>
#include <platform/time/TimeZone.h>

namespace orvo::desktop {

struct DueReminder {
    std::int64_t id = 0;
    CivilTime due;            // as the to-do has it
    std::string description;  // UTF-8; empty for a private to-do that is masked or hidden
};

// True for a due time that means a whole day: its first second, or its last one.
bool IsWholeDay(const CivilTime& due);

// The to-dos that aren't completed and of which it is time to remind now, by rising due time: as
// long before as the options say, in minutes, hours or days for a unit of 0, 1 or else. What is due
// on a day, without a time, is due when the work day begins. What can't be read is passed over.
std::vector<DueReminder> DueReminders(StoreEngine& engine, const COrvoDesktopOptions& options);

}  // namespace orvo::desktop
