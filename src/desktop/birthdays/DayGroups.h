// The headings under which days to come are listed.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <chrono>

namespace orvo::desktop {

// "Today", "This week" until the last day of a week in the user's country, then the month, with its
// year where that is another one than this.
QString HeadingOfDay(std::chrono::sys_days day, std::chrono::sys_days today);

}  // namespace orvo::desktop
