// A note in a window of its own, where no service shows notifications.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <desktop/reminder/Note.h>

class QWidget;

namespace orvo::desktop {

// It stops nothing and ends with the parent, if it has one. `answered` is called once the user has
// pressed one of its buttons, or has closed it.
void ShowNote(QWidget* parent, const Note& note,
              const std::function<void(const std::string& answer)>& answered);

}  // namespace orvo::desktop
