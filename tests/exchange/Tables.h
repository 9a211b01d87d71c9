// Tables of a store in memory, and the text of their records.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <contracts/RecordStore.h>
#include <exchange/files/ImportFile.h>
#include <libraries/quire/MemoryEngine.h>

namespace orvo {

struct Tables {
    MemoryEngine engine;
    CAddressTable addresses{engine};
    CToDoTable toDos{engine};

    ImportReport Import(std::string_view bytes) { return ImportBytes(bytes, addresses, toDos); }
};

// What a record shows, one line a field that isn't empty.
std::vector<std::string> Describe(const CAddressRecord& record);
std::vector<std::string> Describe(const CToDoRecord& record);

// All records of the tables in their order.
std::vector<std::string> DescribeAll(Tables& tables);

// A card of that version around the lines, which end in "\n"; its own lines end in "\r\n".
std::string Card(std::string_view version, std::string_view lines);
std::string Calendar(std::string_view version, std::string_view lines);

}  // namespace orvo
