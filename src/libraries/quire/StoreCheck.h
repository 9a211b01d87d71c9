// Whether a file is a whole store.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <libraries/quire/StoreCounts.h>

namespace orvo {

// Reads through a store file that nobody writes to.
// Returns:  why it is no whole store of a version that this program knows, else an empty text, and
//           how many entries it holds.
std::string WhyNotSound(const std::string& path, StoreCounts& counts);

// Returns:  false, with one line in `error`, where there is no store that this program knows.
bool IsStoreAt(const std::string& path, std::string& error);

// True for another name of the store's file, and for the files beside it that belong to it.
bool IsPartOf(const std::string& store, const std::string& path);

}  // namespace orvo
