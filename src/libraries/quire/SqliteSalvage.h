// What a damaged table of a store file still holds.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include <contracts/StoreEngine.h>

#include "SqliteFile.h"

namespace orvo {

// A row on its own.
struct KeptRow {
    StoredRow row;  // all but `fields`
    std::string fields;
};

constexpr std::int64_t kOpenEnd = std::numeric_limits<std::int64_t>::max();

// A row that can be read, or rows that can't. Where nothing says which of the lost ids had a row,
// all that may have had one count.
struct SalvagedEntry {
    std::int64_t first = 0;
    std::int64_t last = 0;  // of lost rows; kOpenEnd where their last isn't known
    std::int32_t category = 0;
    std::uint32_t flags = 0;
    bool isLost = false;
    std::optional<KeptRow> kept;    // where no search by the id finds the row
    std::vector<std::int64_t> ids;  // the lost rows, where it is known which there were
};

struct SalvagedTable {
    std::vector<SalvagedEntry> entries;  // by rising id
    std::string reason;                  // why rows are lost
};

// True for a result that tells of damage in the file or its disk, behind which there can be more.
bool TellsDamage(int result);

// Gathers all rows above the id `after`, deleted ones too, by every way that SQLite has to them: by
// rising id from behind each damaged page on, and by the ids that the table's index holds.
SalvagedTable SalvageTable(SqliteFile& file, TableKind kind, std::int64_t after);

// "addresses 41 to 60 can't be read".
std::string LostText(TableKind kind, const SalvagedEntry& lost);

}  // namespace orvo
