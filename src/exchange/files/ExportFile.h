// Writing the store to card and calendar files.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <contracts/RecordStore.h>
#include <exchange/lines/ExchangeError.h>

namespace orvo {

// True where a file of that name is written with addresses: its ending is .vcf, in either case.
bool IsCardFile(const std::string& path);

struct ExportReport {
    std::size_t written = 0;
    // One line for each damaged record, and for each that was written in part.
    std::vector<std::string> leftOut;
};

// Writes the addresses to a .vcf file, or the to-dos to a .ics or .vcs file, as the name ends: all
// of them, or those of one category. What was imported and not edited since is written back as it
// came. The file is replaced as a whole or not at all; without a record to write it is left alone.
// Returns:  what was written, and what was left out as the store can't read it any more.
// Fails:    ExchangeError for another ending, where the file can't be written, and where the store
//           can't be read.
ExportReport ExportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos,
                        int category = kAllCategories);

// The same for the records that are wanted.
using IsWanted = std::function<bool(const CBaseRecord&)>;
ExportReport ExportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos,
                        const IsWanted& isWanted);

// The text of one record, as ExportFile would write it.
std::string ExportCard(CAddressRecord& record, CAddressTable& table);

}  // namespace orvo
