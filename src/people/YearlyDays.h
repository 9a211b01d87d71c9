// The days of a person that come back each year.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <contracts/RecordStore.h>
#include <people/Person.h>

namespace orvo {

// A birthday or an anniversary.
struct YearlyDay {
    DetailKind kind;
    PersonDate date;  // comes back
    bool operator==(const YearlyDay&) const = default;
};

struct YearlyDays {
    std::string uid;              // of the card; empty where it has none
    std::vector<YearlyDay> days;  // at most one birthday, which stands first
};

// Those that the record's card holds. To read the card whole as a person takes far longer.
YearlyDays ReadYearlyDays(const CAddressRecord& record);

}  // namespace orvo
