// What stays of two addresses where only one of both can.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <set>
#include <string>

#include <contracts/RecordStore.h>

namespace orvo::desktop {

// The fields of which that of the second address stays; of all others that of the first one does.
struct MergeChoices {
    // Address stands for all of its parts. PhoneField of a slot of the first address is for the
    // number there and the one that NumberPairs puts beside it.
    std::set<AddressField> fields;
    std::set<std::string, std::less<>> properties;  // what a card has once, as AddLinesOfOther does
    bool category = false;

    bool IsEmpty() const { return fields.empty() && properties.empty() && !category; }
    void Add(const MergeChoices& more) {
        fields.insert(more.fields.begin(), more.fields.end());
        properties.insert(more.properties.begin(), more.properties.end());
        category = category || more.category;
    }
};

// The choices of one who makes none: only of two ways to write a number the one that says more of
// it stays, whosever it is.
MergeChoices UsualChoices(const CAddressRecord& first, const CAddressRecord& second);

}  // namespace orvo::desktop
