// Opening and making a store file.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include <libraries/quire/StoreFault.h>
#include <libraries/quire/StoreProgress.h>

#include "SqliteFile.h"

namespace orvo {

// What makes SQLite read a file whose end is cut off or whose schema it doesn't understand in part.
// Nothing may be written then.
constexpr const char* kReadDamaged = "PRAGMA writable_schema = ON; PRAGMA trusted_schema = OFF";

// The open store, made where the file is missing or empty, for reading alone where it is damaged;
// null, with one line in `error`, the fault, and the file as it was, where it can't be had.
std::unique_ptr<SqliteFile> OpenStore(const std::string& path, std::string& error,
                                      StoreFault& fault, const StoreProgress& progress = nullptr);

// Looks at the file before SQLite works with it, which can leave traces beside it.
// Returns:  false, with one line in `error` and the fault, where it is there and is no store to
//           open.
bool CheckHeader(const std::string& path, std::string& error, StoreFault& fault);

// True for a file whose header marks it as a store that this program knows.
bool HasStoreMarks(const std::string& path);

// True for an open file whose mark names a newer version of the format.
bool IsOfNewerVersion(SqliteFile& file);

// Why a store can't be opened, where that can be due to damage: ends with the text of that fault.
std::string DamageError(const std::string& path, const std::string& reason);

// One line for a result of SQLite other than success.
std::string StoreError(const std::string& path, const SqliteFile& file, int result);

}  // namespace orvo
