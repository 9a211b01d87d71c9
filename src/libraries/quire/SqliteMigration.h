// Bringing a store file of an older version to this one.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "SqliteFile.h"

namespace orvo {

// Makes the tables that version 2 has and version 1 hadn't.
// Returns:  SQLite's result.
int MakeSharedTables(SqliteFile& file);

// Brings a store of version 1 to version 2 in one transaction, unless another process has just done
// so, for which it waits. Before that it lays a copy beside the file: the same name and
// ".version-1".
// Returns:  SQLite's result.
// Fails:    with the store as it was, no copy, and one line in `reason`.
int MigrateToVersion2(SqliteFile& file, std::string& reason);

// Makes a store of version 1 readable as one of version 2, and leaves the file as it is.
// Returns:  SQLite's result.
int ReadAsVersion2(SqliteFile& file);

// Ends that once another process has migrated the store.
// Returns:  SQLite's result.
int FollowMigration(SqliteFile& file);

// To be called when a store that could be written is closed without a fault: the copy of an older
// version isn't needed any more.
void RemoveOldCopy(const SqliteFile& file);

}  // namespace orvo
