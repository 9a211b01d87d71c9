// Where a new record belongs in a view.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/addressviews/DetailViewAddrInf.h>
#include <platform/Export.h>

namespace orvo {

// The index at which the record belongs in the view's order; 0 in an empty view, or for null.
ORVO_API unsigned long IndexToInsert(CDetailViewAddrInf& view, CAddressRecord* record);

}  // namespace orvo
