// New address records of what cards say.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/RecordStore.h>
#include <exchange/cards/CardFields.h>
#include <exchange/lines/Origin.h>

namespace orvo {

// Sets the fields of a new record to those of a card, with the labels and the category of its
// origin.
// Returns:  0, or why not as a StoreStatus.
long FillAddress(const CardFields& fields, const Origin& origin, CAddressRecord& record);

// Where a record from a file, which is to replace `row`, has a field as `base` has it, what was
// known of the entry before, it gets that of the row: the file has left it as it was, so that what
// was edited here stays. A number and its label are one.
// Returns:  0, or why not as a StoreStatus.
long KeepEdits(const CAddressRecord& base, const CAddressRecord& row, CAddressRecord& record);

}  // namespace orvo
