// Reminders while no window is open: the service that the desktop starts with the user's session.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace orvo::desktop {

// A store is named as in InstanceName.

// The name on the session bus of the service for that store.
std::string ReminderServiceName(const std::string& store);

// True where the desktop starts the service with each session of the user.
bool IsRemindingInBackground(const std::string& store);

// Makes it so, or not so any more, and starts or ends the service now.
// Returns:  false where the file for that can't be written or removed.
bool SetRemindingInBackground(const std::string& store, bool isOn);

// Starts the service where it is to be there; one that runs already stays.
void StartRemindersInBackground(const std::string& store);

// Starts the program anew, for the window of that store.
// Requires: `arguments` hold no --store.
bool StartWindow(const std::string& store, const std::string& argument, const std::string& value,
                 const std::string& token);

// What a service that runs is asked, as an action, so that it ends.
constexpr const char* kEndService = "end";

}  // namespace orvo::desktop
