// The tables of a store file that say who its rows are and when they changed.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

#include <contracts/StoreEngine.h>
#include <libraries/quire/StoreProgress.h>

#include "SqliteFile.h"

namespace orvo {

// The names of the counters.
constexpr std::string_view kRevisionCounter = "revision";
constexpr std::string_view kOldestCounter = "oldest";  // changes since then can be told
constexpr std::array<std::string_view, 2> kTextCounters{"address_texts", "todo_texts"};

// Make the tables that version 3 has and version 2 hadn't, and their indexes, which cost less once
// the rows are there.
// Returns:  SQLite's result.
int MakeIdentityTables(SqliteFile& file);
int MakeIdentityIndexes(SqliteFile& file);

// Gives each row of a store whose identity tables are empty its uid and its times. What is damaged
// is passed over.
// Returns:  SQLite's result; SQLITE_INTERRUPT where `progress` returns false.
int FillIdentityTables(SqliteFile& file, const StoreProgress& progress);

// Says that the store was put in the place of another one whose revision was `revision`, so that
// its own never goes back, and that what was changed before can't be told.
// Returns:  SQLite's result.
int ContinueRevisions(SqliteFile& file, std::int64_t revision);

}  // namespace orvo
