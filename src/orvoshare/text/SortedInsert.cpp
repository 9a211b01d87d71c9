// Finding the place of a new row in a sorted list.
// SPDX-License-Identifier: MIT
#include <orvoshare/text/SortedInsert.h>

namespace orvo {

unsigned long GetSortedIndexToInsert(unsigned long first, unsigned long last, long key,
                                     RowCompare compare, long context) {
    const auto compareRow = [&](unsigned long row) {
        return compare(static_cast<long>(row), key, context);
    };
    for (;;) {
        const unsigned long middle = first + (last - first) / 2;
        if (middle == first) break;
        const int result = compareRow(middle);
        if (result == 0) return middle;
        // Both halves keep the middle: the order of the probes decides where a row goes among equal
        // ones.
        if (result == -1) {
            first = middle;
        } else {
            last = middle;
        }
    }
    if (compareRow(first) >= 0) return first;
    if (compareRow(last) >= 0) return last;
    return last + 1;
}

}  // namespace orvo
