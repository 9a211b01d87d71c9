// Reading card and calendar files into the store.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <contracts/RecordStore.h>

namespace orvo {

// Why a file as a whole could not be read or written; what() is one line that says what, where and
// why.
class ExchangeError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// An entry of a file that was left out.
struct SkippedEntry {
    std::size_t line;    // of the entry's first line, from 1
    std::string reason;  // one line, UTF-8
};

struct ImportReport {
    std::size_t addresses = 0;
    std::size_t toDos = 0;
    std::vector<SkippedEntry> skipped;
};

// Reads a vCard (2.1, 3.0, 4.0), vCalendar 1.0 or iCalendar file; the content decides, not the
// name. Records get rising ids and placement positions in the file's order.
// Requires: the caller has a transaction open if the import must be all or nothing.
// Fails:    ExchangeError where the file can't be read, is no card or calendar file, or the store
//           refuses to write.
ImportReport ImportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos);

// The same for bytes that the caller has read.
ImportReport ImportBytes(std::string_view bytes, CAddressTable& addresses, CToDoTable& toDos);

}  // namespace orvo
