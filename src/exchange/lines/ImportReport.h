// How far an import has come, and what became of it.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orvo {

// Called every few thousand bytes with how many of a file's bytes are in the store, and at the end
// with all. The numbers never fall. A function that returns false ends the import.
using ImportProgress = std::function<bool(std::size_t done, std::size_t total)>;

// An entry of a file that was left out.
struct SkippedEntry {
    std::size_t line;    // of the entry's first line, from 1
    std::string reason;  // one line, UTF-8
};

struct ImportReport {
    std::size_t addresses = 0;
    std::size_t toDos = 0;
    // The ids of the first and the last address; both 0 where there is none. In a transaction all
    // between them are of the file, too.
    std::int64_t firstAddress = 0;
    std::int64_t lastAddress = 0;
    std::vector<SkippedEntry> skipped;
};

}  // namespace orvo
