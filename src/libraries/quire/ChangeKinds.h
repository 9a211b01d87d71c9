// How the changes of a store are told, whatever engine keeps it.
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <contracts/StoreEngine.h>

namespace orvo {

// What has become of a row that is there since a revision, from those of its addition and of the
// last time that it was marked as deleted or the mark was taken away.
StoreChange::Kind KindOfChange(std::int64_t since, std::int64_t added, std::int64_t marked,
                               bool isDeleted);

// The order of changes of one revision.
int RankOf(TableKind table, StoreChange::Kind kind);
bool IsBehind(const StoreChange& change, const ChangePlace& place);
void MoveBehind(const StoreChange& change, ChangePlace& place);
void SortChanges(std::vector<StoreChange>& changes);

}  // namespace orvo
