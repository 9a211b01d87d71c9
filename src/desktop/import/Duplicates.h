// Addresses that may be of the same person or company.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

#include <contracts/RecordStore.h>

namespace orvo::desktop {

// Ids; the first is the older one.
struct DuplicatePair {
    std::int64_t first;
    std::int64_t second;
    bool operator==(const DuplicatePair&) const = default;
};

struct IdRange {
    std::int64_t first = 1;
    std::int64_t last = std::numeric_limits<std::int64_t>::max();
    bool Holds(std::int64_t id) const { return id >= first && id <= last; }
};

// The pairs whose second one is of the range, by its id. Both have the same name, or without one
// the same company, whatever the case, width and accents, and share a phone number or a mail
// address. Each address is the second of one pair at the most. What is private counts only where
// it is asked for.
// Returns:  what was found up to where the store can't be read; damaged addresses are passed over.
std::vector<DuplicatePair> FindDuplicates(CAddressTable& table, bool withPrivate,
                                          const IdRange& range = {});

// True for texts that lead to the same phone or mailbox: "+49 30 1234567" and "030/1234567" do.
// UTF-8. Never for an empty text.
bool IsSameContact(std::string_view left, std::string_view right);

}  // namespace orvo::desktop
