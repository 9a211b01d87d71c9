// What two cards of one person know together.
// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <string_view>

#include <contracts/RecordStore.h>

namespace orvo {

// The properties that a card has once, by the name under which they are known best: "ANNIVERSARY"
// for X-ANNIVERSARY, too. In capitals; empty for a property of which there may be more.
std::string_view OnceName(std::string_view property);

// Adds to the card of `kept` every line of the card of `other` that no field of an address record
// holds, so that exports of `kept` have it, too. A second line of what a card has only once, and
// what a field holds in part, is written under a name of our own, X-ORVO-OTHER-NAME. Of the
// properties in `ofOther`, by OnceName, or "N", "FN" and "ORG" with all of their parts, those of
// `kept` are, where `other` has one. The fields of both records stay. Where `kept` was not imported
// it gets a card that says what its fields say.
// Returns:  0, or why not as a StoreStatus; ExchangeError where the store can't be read.
long AddLinesOfOther(CAddressRecord& kept, const CAddressRecord& other, CAddressTable& table,
                     const std::set<std::string, std::less<>>& ofOther = {});

}  // namespace orvo
