// What the user prefers in this program alone: its language, and the sound of reminders.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace orvo::desktop {

// A locale, such as "de-DE", whose language the program speaks from its next start; empty for that
// of the system.
std::string PreferredLocale();
bool SetPreferredLocale(const std::string& locale);

// The path, in UTF-8, of the sound file that a reminder plays; empty for none.
std::string ReminderSound();
bool SetReminderSound(const std::string& path);

}  // namespace orvo::desktop
