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

// What becomes of an entry whose UID the store holds.
enum class KnownEntry {
    Update,    // it updates what the store holds, where it is newer
    AddAgain,  // it is added like any other
};

// An entry of a file that was left out, or that was to stay as the store holds it.
struct SkippedEntry {
    std::size_t line;    // of the entry's first line, from 1
    std::string reason;  // one line, UTF-8
};

struct ImportReport {
    // What was added, or was brought back from among the deleted ones.
    std::size_t addresses = 0;
    std::size_t toDos = 0;
    // What the store held already: brought up to date, or equal in content.
    std::size_t updated = 0;
    std::size_t unchanged = 0;
    // The ids of the first and the last address that was added; both 0 where there is none. In a
    // transaction all between them are of the file, too.
    std::int64_t firstAddress = 0;
    std::int64_t lastAddress = 0;
    std::vector<SkippedEntry> skipped;
};

}  // namespace orvo
