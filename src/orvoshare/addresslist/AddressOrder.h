// Sorting many addresses at once.
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

}  // namespace orvo
