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

// The file's absolute name: SQLite takes names such as ":memory:" for something else than a file.
std::string StoreFileName(const std::string& path);
// The same as SQLite's URI, by which it is opened for reading and leaves nothing beside the file.
std::string ReadOnlyUri(const std::string& path);

// The open store, made where the file is missing or empty, for reading alone where it is damaged;
// null, with one line in `error`, the fault, and the file as it was, where it can't be had.
std::unique_ptr<SqliteFile> OpenStore(const std::string& path, std::string& error,
                                      StoreFault& fault, const StoreProgress& progress = nullptr);

// True for a file whose header marks it as a store that this program knows.
bool HasStoreMarks(const std::string& path);

// True for an open file whose mark names a newer version of the format.
bool IsOfNewerVersion(SqliteFile& file);

// Why a store can't be opened, where that can be due to damage: ends with the text of that fault.
std::string DamageError(const std::string& path, const std::string& reason);

// One line for a result of SQLite other than success.
std::string StoreError(const std::string& path, const SqliteFile& file, int result);

}  // namespace orvo
