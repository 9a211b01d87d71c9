// The names of categories as views show them.
// SPDX-License-Identifier: MIT
#include <contracts/ResourceScope.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <orvoshare/text/CategoryText.h>

namespace orvo {
namespace {

// The category of records without one goes by the name of the user's language until somebody
// renames it.
bool IsUnnamed(const CCategory& category) {
    return category.GetIndex() == kNoCategory && category.Utf8() == kNoCategoryName;
}

CString TextForNone() {
    const CDllResourceHandler resources(OrvoShareRecord());
    CString text;
    text.LoadString(kStringUncategorized);
    return text;
}

}  // namespace

CString CategoryText(CBaseTable& table, const CBaseRecord& record) {
    int index = -1;
    record.GetCategoryId(index);
    CCategory* category = nullptr;
    if (CCategoryMgr* manager = table.GetCategoryManager()) manager->FindIndex(index, category);
    return category != nullptr ? CategoryText(*category) : TextForNone();
}

CString CategoryText(CCategory& category) {
    return IsUnnamed(category) ? TextForNone() : category.GetName();
}

void FillCategoryPopup(CCategoryMgr& categories, CCategoryCombo& combo, CMenu& menu,
                       UINT firstCommand) {
    FillCategoryMenu(&categories, &combo, &menu, static_cast<int>(firstCommand));
    CCategory* none = nullptr;
    categories.FindIndex(kNoCategory, none);
    if (none == nullptr || !IsUnnamed(*none)) return;
    const UINT command = firstCommand + kNoCategory;
    menu.ModifyMenu(command, MF_BYCOMMAND, command, TextForNone());
}

}  // namespace orvo
