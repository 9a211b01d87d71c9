// Writing the store to card and calendar files.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include <contracts/RecordStore.h>
#include <exchange/ImportFile.h>

namespace orvo {

// True where a file of that name is written with addresses: its ending is .vcf, in either case.
bool IsCardFile(const std::string& path);

// Writes the addresses to a .vcf file, or the to-dos to a .ics or .vcs file, as the name ends: all
// of them, or those of one category. What was imported and not edited since is written back as it
// came. The file is replaced as a whole or not at all; without a record to write it is left alone.
// Gives:  the number of records written.
// Fails:  ExchangeError for another ending, where the file can't be written, and where the store
//         can't be read.
std::size_t ExportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos,
                       int category = kAllCategories);

// The text of one record, as ExportFile would write it.
std::string ExportCard(CAddressRecord& record, CAddressTable& table);

}  // namespace orvo
