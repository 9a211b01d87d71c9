// What the user can do where a store can't be opened, or was taken away while it was open.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include <libraries/quire/StoreFault.h>

namespace orvo::desktop {

// Says why the store can't be opened and asks for a way on: the same again, another one, the rescue
// of a damaged one, or none.
// Returns:  the store to open next; nothing where the user gives it up.
std::optional<std::string> AskForStore(const std::string& store, StoreFault fault);

// Says that the open store was removed or replaced.
// Returns:  true where the user wants what lies there now.
bool AskToReopen(QWidget* parent, const std::string& store);

}  // namespace orvo::desktop
