// The window in which the user decides what becomes of duplicates.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include <desktop/import/Duplicates.h>

namespace orvo::desktop {

// Runs changes of the store, which return 0 on success, as one step of that name.
// Returns:  an empty text, else why nothing was changed, in one line.
using RunChange =
    std::function<std::string(const std::string& name, const std::function<long()>& change)>;

// Where the pairs come from, which decides what their halves are called.
enum class DuplicateOrigin { Import, Store };

// Shows the pairs one after the other: to be merged, to be left as they are, or with the second one
// to be deleted. A pair of which one is gone meanwhile is passed over.
// Returns:  true where the user has changed something.
bool ShowDuplicates(QWidget* parent, CAddressTable& table, const std::vector<DuplicatePair>& pairs,
                    DuplicateOrigin origin, const RunChange& run);

// Says how many an import has found, and lets the user choose to look at them.
bool AskToReview(QWidget* parent, std::size_t count);

}  // namespace orvo::desktop
