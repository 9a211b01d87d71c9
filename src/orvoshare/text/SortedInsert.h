// Finding the place of a new row in a sorted list.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>

namespace orvo {

// Compares the element at `row` with `key`: exactly -1 where the row's element sorts before the
// key, 0 where they are equal, a positive number where it sorts after.
using RowCompare = int (*)(long row, long key, long context);

// The row at which to insert `key` into the sorted rows `first` to `last`, both inclusive. Among
// equal elements the new one goes before the one that the halving meets first.
// Requires: at least one row.
ORVO_API unsigned long GetSortedIndexToInsert(unsigned long first, unsigned long last, long key,
                                              RowCompare compare, long context);

}  // namespace orvo
