// The names of categories as views show them.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/ListWidget.h>
#include <contracts/RecordStore.h>
#include <platform/text/CString.h>

namespace orvo {

// The name of the record's category; the module's text for none where the table doesn't know it.
CString CategoryText(CBaseTable& table, const CBaseRecord& record);

// The name of a category that the table knows.
CString CategoryText(CCategory& category);

// FillCategoryMenu with the names that CategoryText gives.
void FillCategoryPopup(CCategoryMgr& categories, CCategoryCombo& combo, CMenu& menu,
                       UINT firstCommand);

}  // namespace orvo
