// Sorting many addresses at once, by keys.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <contracts/RecordStore.h>
#include <platform/Export.h>

namespace orvo {

using AddressRecords = std::vector<std::unique_ptr<CAddressRecord>>;

// Puts the records into the order of AddrCompareFunc, by way of one sort key a record. Equal
// records keep their order.
ORVO_API void SortAddresses(AddressRecords& records, long listBy);

// From now on lists sort their rows, whose data words are addresses of records, by keys where they
// are to be sorted by one of the compare functions of addresses. May be called again.
ORVO_API void RegisterAddressSortKeys();

}  // namespace orvo
