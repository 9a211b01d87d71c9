// The category of a record as views show it.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/RecordStore.h>
#include <platform/text/CString.h>

namespace orvo {

// The name of the record's category; the module's text for none where the table doesn't know it.
CString CategoryText(CBaseTable& table, const CBaseRecord& record);

// True where that is the name for none.
bool IsUncategorized(CBaseTable& table, const CBaseRecord& record);

}  // namespace orvo
