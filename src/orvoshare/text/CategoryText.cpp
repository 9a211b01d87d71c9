// The category of a record as views show it.
// SPDX-License-Identifier: MIT
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <orvoshare/text/CategoryText.h>

namespace orvo {
namespace {

CString TextForNone() {
    return OrvoShareText(kStringUncategorized);
}

}  // namespace

CString CategoryText(CBaseTable& table, const CBaseRecord& record) {
    int index = -1;
    record.GetCategoryId(index);
    CCategory* category = nullptr;
    if (CCategoryMgr* manager = table.GetCategoryManager()) manager->FindIndex(index, category);
    return category != nullptr ? category->GetName() : TextForNone();
}

}  // namespace orvo
