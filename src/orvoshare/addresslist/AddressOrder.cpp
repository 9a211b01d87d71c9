// Sorting many addresses at once.
// SPDX-License-Identifier: MIT
#include <orvoshare/addresslist/AddrCompare.h>
#include <orvoshare/addresslist/AddressOrder.h>
#include <platform/text/KeySort.h>

namespace orvo {

void SortAddresses(AddressRecords& records, long listBy) {
    AddrSortKeys keys(AddrSortKeys::SystemForm(), listBy);
    const std::vector<std::uint32_t> order =
        KeySortedRows(records.size(), [&](std::uint32_t row, std::size_t part, std::string& key) {
            keys.AppendPart(*records[row], part, key);
        });
    AddressRecords sorted;
    sorted.reserve(records.size());
    for (const std::uint32_t row : order) sorted.push_back(std::move(records[row]));
    records = std::move(sorted);
}

}  // namespace orvo
