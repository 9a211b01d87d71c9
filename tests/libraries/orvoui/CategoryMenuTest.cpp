// The menu of categories: its order, names and commands.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <contracts/Category.h>
#include <contracts/ListWidget.h>
#include <platform/text/SystemText.h>
#include <support/CodePages.h>

namespace orvo {

TEST(CategoryMenu, AGapInTheIndicesIsAGapInTheCommands) {
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce locale(page.tag, page.codePage);
        CCategoryMgr manager;
        manager.Load(15, "表 & 予定");
        manager.Load(0, "Uncategorized");
        manager.Load(3, "Home");
        CMenu menu;
        menu.CreatePopupMenu();

        EXPECT_EQ(FillCategoryMenu(&manager, nullptr, &menu, 1574), 3);

        std::vector<std::string> items;
        for (int item = 0; item < menu.GetMenuItemCount(); ++item) {
            CString text;
            menu.GetMenuString(static_cast<UINT>(item), text, MF_BYPOSITION);
            items.push_back(std::to_string(menu.GetMenuItemID(item)) + ' ' + ToUtf8(text));
        }
        EXPECT_THAT(items,
                    testing::ElementsAre("1574 Uncategorized", "1577 Home", "1589 表 && 予定"));
        EXPECT_EQ(FillCategoryMenu(nullptr, nullptr, &menu, 1574), 0);
    }
}
}  // namespace orvo
