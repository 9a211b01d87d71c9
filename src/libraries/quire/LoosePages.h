// Rows on pages of a store file to which nothing leads any longer.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include <contracts/StoreEngine.h>

#include "SqliteSalvage.h"

namespace orvo {

// The rows of the table, by their ids, of all pages that can be read on their own: also where the
// page that led to them is lost. Only whole rows that lie on one page are returned.
std::map<std::int64_t, KeptRow> ReadLoosePages(const std::string& path, TableKind kind);

}  // namespace orvo
