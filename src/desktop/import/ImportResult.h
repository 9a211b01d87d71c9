// What becomes of files that are imported together.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orvo::desktop {

// An entry that was left out.
struct SkippedLine {
    std::string file;
    std::size_t line;    // of the entry's first line, from 1
    std::string reason;  // one line, UTF-8
};

// "file:line: reason"
std::string TextOf(const SkippedLine& skipped);

// Nothing was imported where it failed or was cancelled.
struct ImportResult {
    // Those that were added, or have come back from the trash.
    std::size_t addresses = 0;
    std::size_t toDos = 0;
    // What the store held already: brought up to date, or equal.
    std::size_t updated = 0;
    std::size_t unchanged = 0;
    // The ids of the first and the last address that was added; all between them were, too. Both 0
    // where there is none.
    std::int64_t firstAddress = 0;
    std::int64_t lastAddress = 0;
    std::vector<SkippedLine> skipped;
    std::string failure;  // one line; empty on success
    bool isCancelled = false;
};

// Called with the file that is being read, by its place in the list, and how many of its bytes are
// done; false ends the import.
using FileProgress = std::function<bool(std::size_t file, std::size_t done, std::size_t total)>;

}  // namespace orvo::desktop
