// Where a new record belongs in a view.
// SPDX-License-Identifier: MIT
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/AddressInsert.h>
#include <orvoshare/text/SortedInsert.h>

namespace orvo {
namespace {

// An item without a record goes before all others.
int CompareForInsert(long index, long key, long context) {
    auto& view = *reinterpret_cast<CDetailViewAddrInf*>(context);
    const CAddressRecord* record = RecordOf(view.DV_GetItemData(static_cast<int>(index)));
    if (!record) return -1;
    return AddrCompareFunc(reinterpret_cast<long>(record), key, view.DV_GetListBy());
}

}  // namespace

unsigned long IndexToInsert(CDetailViewAddrInf& view, CAddressRecord* record) {
    const int count = view.DV_GetItemCount();
    if (count == 0 || !record) return 0;
    return GetSortedIndexToInsert(0, static_cast<unsigned long>(count) - 1,
                                  reinterpret_cast<long>(record), CompareForInsert,
                                  reinterpret_cast<long>(&view));
}

}  // namespace orvo
