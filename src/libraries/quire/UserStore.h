// The store of the user: where it lies, and how a host opens it.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include <libraries/quire/SqliteEngine.h>
#include <platform/Export.h>

namespace orvo {

// The file orvo/orvo.db in the user's data folder ($XDG_DATA_HOME, else ~/.local/share), whether it
// is there or not; empty where there is no home.
ORVO_API std::string UserStorePath();

// Makes the folder of UserStorePath(), for the user alone, where it isn't there.
// Fails:    false, with one line in `error`.
ORVO_API bool MakeUserStoreFolder(std::string& error);

// Opens or creates the store file at `path`; an empty path stands for UserStorePath(), whose folder
// is then made, for the user alone.
// Returns:  the engine; null on failure, with the reason in one line in `error` and, where it is
//           asked for, in `fault`.
ORVO_API std::unique_ptr<SqliteEngine> OpenUserStore(const std::string& path, std::string& error,
                                                     StoreFault* fault = nullptr,
                                                     const StoreProgress& progress = nullptr);

}  // namespace orvo
