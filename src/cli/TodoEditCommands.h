// todo add and todo edit.
// SPDX-License-Identifier: MIT
#pragma once

#include <cli/Commands.h>

namespace orvo::cli {

// Adds both below `todo`.
void AddTodoEditCommands(CLI::App& todo, Invocation& invocation);

}  // namespace orvo::cli
