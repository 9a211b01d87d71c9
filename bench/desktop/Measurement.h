// Measuring one window, in a process of its own.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace orvo::bench {

// The variable of the environment that hands over when the process began: nanoseconds of the
// steady clock.
constexpr const char* kStartVariable = "ORVO_BENCH_START";

// Each of them has one, and stands at the beginning of the list.
constexpr int kPeopleWithPhoto = 10;

enum class WindowKind { Ours, Plain };

// Opens the window on the store and writes each figure, as soon as it is known, to standard output:
// its number, a blank and its value, in milliseconds or megabytes.
// Gives:  the exit code of the process.
int MeasureWindow(WindowKind kind, const std::string& store, int& count, char** arguments);

}  // namespace orvo::bench
