// Reading card and calendar files into the store.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
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

// The import was ended by its progress function.
class ImportCancelled : public ExchangeError {
public:
    ImportCancelled() : ExchangeError("the import was cancelled") {}
};

// Told, every few thousand bytes, how many of a file's bytes are in the store, and at the end that
// all are. The numbers never fall. To give false ends the import.
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

// Reads a vCard (2.1, 3.0, 4.0), vCalendar 1.0 or iCalendar file; the content decides, not the
// name. Records get rising ids and placement positions in the file's order.
// Requires: the caller has a transaction open if the import must be all or nothing.
// Fails:    ExchangeError where the file can't be read, is no card or calendar file, or the store
//           refuses to write; ImportCancelled where `progress` gives false.
ImportReport ImportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos,
                        const ImportProgress& progress = nullptr);

// The same for bytes that the caller has read.
ImportReport ImportBytes(std::string_view bytes, CAddressTable& addresses, CToDoTable& toDos,
                         const ImportProgress& progress = nullptr);

}  // namespace orvo
