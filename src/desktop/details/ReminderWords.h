// A reminder of a to-do in the user's words.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <exchange/calendar/Reminders.h>

namespace orvo::desktop {

// "15 minutes before it is due", "when it begins", or day and time as the user's country writes
// them.
QString ReminderWords(const ReminderTime& time);

}  // namespace orvo::desktop
