// Where a command gets the password from, as any process may read its arguments: terminal or file.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace orvo::cli {

// Asks on the terminal that standard input is, without showing what is typed.
// Returns:  what was typed up to the end of the line; the caller wipes it.
// Fails:    CommandError, wrong use, where standard input is no terminal.
std::string AskForPassword();

// The first line of a file; "-" is standard input.
// Returns:  the line without its end; the caller wipes it.
// Fails:    CommandError, wrong use, where the file can't be read.
std::string ReadPassword(const std::string& file);

}  // namespace orvo::cli
