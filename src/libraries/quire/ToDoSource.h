// What the source of a to-do says that its packed fields repeat.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/RecordFields.h>
#include <contracts/ToDoDetails.h>
#include <libraries/quire/StoreProgress.h>

namespace orvo {

class SqliteFile;

// Sets the fields of the details, and takes out those that say nothing.
void PackDetails(const ToDoDetails& details, PackedFields& fields);

// Packs what the sources of all to-dos say, those of older versions of the store without.
// Returns:  a result of SQLite.
int FillToDoDetails(SqliteFile& file, const StoreProgress& progress);

}  // namespace orvo
