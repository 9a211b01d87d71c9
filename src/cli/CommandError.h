// How commands end that can't do what they were asked to do.
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace orvo::cli {

// The exit codes of the program.
enum ExitCode { kDone = 0, kNothingFound = 1, kWrongUse = 2, kSomeSkipped = 3 };

// Ends a command with one line on standard error.
class CommandError : public std::runtime_error {
public:
    CommandError(ExitCode code, const std::string& message)
        : std::runtime_error(message), m_code(code) {}
    ExitCode Code() const { return m_code; }

private:
    ExitCode m_code;
};

}  // namespace orvo::cli
