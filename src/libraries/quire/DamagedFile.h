// A damaged store file, open for reading as far as it goes.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "SqliteFile.h"

namespace orvo {

// Opens the store file for reading, past what SQLite itself holds against it: an end that is cut
// off, or entries of the schema that it doesn't understand. The file isn't changed.
// Returns:  null, with the reason in one line in `error`, where the tables of a store aren't found.
std::unique_ptr<SqliteFile> OpenDamagedFile(const std::string& path, std::string& error);

// The same for a copy of the file, made at `copy`, that has the schema of `fresh`, a new store:
// all stores that were made in this version have their tables at the same pages.
std::unique_ptr<SqliteFile> OpenDamagedCopy(const std::string& path, const std::string& copy,
                                            const std::string& fresh, std::string& error);

// True for a file that SQLite reads well and that is no store.
bool IsForeignFile(const std::string& path);

}  // namespace orvo
