// Saving what can still be read of a damaged store file.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <libraries/quire/RescueReport.h>
#include <platform/Export.h>

namespace orvo {

// Copies all records with their notes and sources, the categories and the labels that SQLite can
// still read in the store `damaged` into the new store `fresh`, under the ids that they had.
// `damaged` is only read, and needs no header and no tables of contents that can be read.
// Returns:  false, with one line in `error`, where there is a `fresh` already, where it can't be
//           written, and where nothing of a store is found. It is then not made.
ORVO_API bool RescueStore(const std::string& damaged, const std::string& fresh,
                          RescueReport& report, std::string& error);

// True for a file that is marked as a store and whose tables can't be found.
ORVO_API bool IsDamagedStore(const std::string& path);

}  // namespace orvo
