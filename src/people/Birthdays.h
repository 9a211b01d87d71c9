// The birthdays of the people in a store.
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <contracts/RecordStore.h>
#include <people/PersonDate.h>

namespace orvo {

struct Birthday {
    std::int64_t id;  // of the record
    std::string uid;  // of its card; empty where it has none
    std::string name;
    PersonDate date;
    std::chrono::sys_days next;  // the first day from today on
    std::optional<int> years;    // that the person turns then
};

// The birthdays of the records that are wanted and in use, in the order of the days to come from
// `today` on, then of the names. `nameOf` says how a person is called. Records that can't be read
// are left out; the table's failure listener hears of them.
std::vector<Birthday> ReadBirthdays(CAddressTable& table, std::chrono::sys_days today,
                                    const std::function<bool(const CAddressRecord&)>& isWanted,
                                    const std::function<std::string(CAddressRecord&)>& nameOf);

// A calendar (RFC 5545) with an event of a whole day, each year, for each of them. One whose year
// isn't told begins in the year 2000.
std::string CalendarOf(const std::vector<Birthday>& birthdays);

}  // namespace orvo
