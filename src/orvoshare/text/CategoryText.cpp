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

// Null where the table doesn't know it.
CCategory* CategoryOf(CBaseTable& table, const CBaseRecord& record) {
    int index = -1;
    record.GetCategoryId(index);
    CCategory* category = nullptr;
    if (CCategoryMgr* manager = table.GetCategoryManager()) manager->FindIndex(index, category);
    return category;
}

}  // namespace

CString CategoryText(CBaseTable& table, const CBaseRecord& record) {
    CCategory* category = CategoryOf(table, record);
    return category != nullptr ? category->GetName() : TextForNone();
}

bool IsUncategorized(CBaseTable& table, const CBaseRecord& record) {
    int index = kNoCategory;
    record.GetCategoryId(index);
    return index == kNoCategory || CategoryOf(table, record) == nullptr;
}

}  // namespace orvo
