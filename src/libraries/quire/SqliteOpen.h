// Opening and making a store file.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "SqliteFile.h"

namespace orvo {

constexpr int kBusyTimeout = 3000;  // milliseconds

// The open store, made where the file is missing or empty; null, with one line in `error`, and the
// file as it was, where it can't be had.
std::unique_ptr<SqliteFile> OpenStore(const std::string& path, std::string& error);

// One line for a result of SQLite other than success.
std::string StoreError(const std::string& path, const SqliteFile& file, int result);

}  // namespace orvo
