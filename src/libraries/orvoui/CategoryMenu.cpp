// The pop-up menu of categories.
// SPDX-License-Identifier: MIT
#include <contracts/Category.h>
#include <contracts/ListWidget.h>

namespace orvo {

int FillCategoryMenu(CCategoryMgr* categories, CCategoryCombo*, CMenu* menu, int firstCommand) {
    if (!categories || !menu) return 0;
    int appended = 0;
    for (int index = 0; index < kCategoryCount; ++index) {
        CCategory* category = nullptr;
        if (categories->FindIndex(index, category) != 0) continue;
        CString name = category->GetName();
        name.Replace("&", "&&");
        appended += menu->AppendMenu(MF_STRING, static_cast<UINT>(firstCommand + index), name);
    }
    return appended;
}

}  // namespace orvo
