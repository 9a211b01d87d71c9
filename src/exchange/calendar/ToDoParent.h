// Which to-do another one is a part of, and how much of it is done.
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <exchange/calendar/ToDoText.h>

namespace orvo {

// Makes it a part of the to-do of that UID, and of no other one; of none for an empty UID.
// Relations of other kinds stay.
// Returns:  false where the text isn't a to-do, or says so already.
bool WithParent(ToDoText& toDo, std::string_view uid);

// Sets how much of it is done, from 0 to 100.
// Returns:  as above.
bool WithPercent(ToDoText& toDo, int percent);

}  // namespace orvo
