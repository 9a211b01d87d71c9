// Bringing a store file of an older version to this one.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include <libraries/quire/StoreProgress.h>

#include "SqliteFile.h"

namespace orvo {

constexpr std::int64_t kOldestStoreVersion = 1;
constexpr std::int64_t kStoreVersion = 4;

// Makes the tables that version 2 has and version 1 hadn't.
// Returns:  SQLite's result.
int MakeSharedTables(SqliteFile& file);

// Brings a store of an older version to this one in one transaction, unless another process has
// just done so, for which it waits. Before that it lays a copy beside the file: the same name and
// ".version-1", or what its version was.
// Returns:  SQLite's result; SQLITE_INTERRUPT where `progress` returned false.
// Fails:    with the store as it was, no copy, and one line in `reason`.
int MigrateStore(SqliteFile& file, const StoreProgress& progress, std::string& reason);

// Makes a store of an older version readable as one of this version, and leaves the file as it is.
// Returns:  SQLite's result.
int ReadOlderStore(SqliteFile& file);

// Ends that once another process has migrated the store.
// Returns:  SQLite's result.
int FollowMigration(SqliteFile& file);

// To be called when a store that could be written is closed without a fault: the copy of an older
// version isn't needed any more.
void RemoveOldCopy(const SqliteFile& file);

}  // namespace orvo
