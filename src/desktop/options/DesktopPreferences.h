// What this program alone keeps for the user: language, colours, reminders, maps, and where file
// dialogs begin.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace orvo::desktop {

// A locale, such as "de-DE", whose language the program speaks from its next start; empty for that
// of the system.
std::string PreferredLocale();
bool SetPreferredLocale(const std::string& locale);

// The path, in UTF-8, of the sound file that a reminder plays; empty for none.
std::string ReminderSound();
bool SetReminderSound(const std::string& path);

// How many days before a birthday a reminder comes, up to the longest; nothing for none.
constexpr int kLongestBirthdayAdvance = 31;
std::optional<int> BirthdayAdvance();
bool SetBirthdayAdvance(std::optional<int> days);

// The page that shows a postal address on a map, with "%1" for the address; empty for none.
std::string MapAddress();
bool SetMapAddress(const std::string& address);

// The folder, in UTF-8, of the file that was chosen last in a file dialog; where it is gone, or
// before there is one, that of the user's documents, else his home.
std::string LastFolder();
bool SetLastFolder(const std::string& folder);

// Whether the list leaves to-dos out that haven't begun.
bool HidesUnstarted();
bool SetHidesUnstarted(bool hides);

// Where the window's colours come from; "Desktop" before the user has chosen.
enum class Colours { Desktop, Light, Dark };
Colours PreferredColours();
bool SetPreferredColours(Colours colours);

}  // namespace orvo::desktop
