// How the changes of a store are told.
// SPDX-License-Identifier: MIT
#include "ChangeKinds.h"

#include <algorithm>
#include <tuple>

namespace orvo {

namespace {

auto KeyOf(const StoreChange& change) {
    return std::tuple(change.revision, RankOf(change.table, change.kind), change.id);
}

}  // namespace

StoreChange::Kind KindOfChange(std::int64_t since, std::int64_t added, std::int64_t marked,
                               bool isDeleted) {
    if (isDeleted) {
        return added > since || marked > since ? StoreChange::Kind::Trashed
                                               : StoreChange::Kind::Changed;
    }
    if (added > since) {
        return StoreChange::Kind::Added;
    }
    return marked > since ? StoreChange::Kind::Back : StoreChange::Kind::Changed;
}

int RankOf(TableKind table, StoreChange::Kind kind) {
    const int first = kind == StoreChange::Kind::Texts     ? 4
                      : kind == StoreChange::Kind::Removed ? 2
                                                           : 0;
    return first + static_cast<int>(table);
}

bool IsBehind(const StoreChange& change, const ChangePlace& place) {
    return KeyOf(change) > std::tuple(place.revision, place.rank, place.id);
}

void MoveBehind(const StoreChange& change, ChangePlace& place) {
    std::tie(place.revision, place.rank, place.id) = KeyOf(change);
}

void SortChanges(std::vector<StoreChange>& changes) {
    std::sort(changes.begin(), changes.end(),
              [](const auto& a, const auto& b) { return KeyOf(a) < KeyOf(b); });
}

}  // namespace orvo
