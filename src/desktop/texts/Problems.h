// What goes wrong, on standard error and in messages.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <string_view>
#include <vector>

namespace orvo::desktop {

// Writes one line behind the program's name. The text is UTF-8.
void PrintProblem(std::string_view problem);

// A line for a message or the status bar: where it ends with the fault of a store, that is in the
// user's language.
QString ProblemText(std::string_view problem);

// The rest of a message: the first of the lines, each behind a line break, and how many more there
// are.
QString ProblemLines(const std::vector<std::string>& lines);

}  // namespace orvo::desktop
