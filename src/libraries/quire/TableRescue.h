// Copying the tables of a damaged store file.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <contracts/StoreEngine.h>
#include <libraries/quire/RescueReport.h>

#include "SqliteFile.h"

namespace orvo {

// Copies all records and names that can still be read of `file`, which lies at `path`, into a new
// store, and notes in `report` what was copied and what is lost. `foundNothing` is set where that
// is nothing.
// Returns:  false where the new store can't take it; its LastError says why.
bool RescueTables(SqliteFile& file, const std::string& path, StoreEngine& fresh,
                  RescueReport& report, bool& foundNothing);

}  // namespace orvo
