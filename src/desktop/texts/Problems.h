// What goes wrong, on standard error and in messages.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace orvo::desktop {

// Writes one line behind the program's name. The text is UTF-8.
void PrintProblem(std::string_view problem);

// A line for a message or the status bar: where it ends with the fault of a store, that is in the
// user's language.
QString ProblemText(std::string_view problem);

}  // namespace orvo::desktop
