// The menu of categories: its order, names and commands.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <contracts/Category.h>
#include <contracts/ListWidget.h>
#include <platform/text/CodePage.h>
#include <support/CodePages.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

class CategoryMenu : public testing::TestWithParam<LocaleCase> {
protected:
    LocaleInForce locale{GetParam().tag, GetParam().codePage};
};
INSTANTIATE_TEST_SUITE_P(CodePages, CategoryMenu, testing::ValuesIn(kBothCodePages));

TEST_P(CategoryMenu, AGapInTheIndicesIsAGapInTheCommands) {
    constexpr int kFirstCommand = 1574;
    CCategoryMgr manager;
    manager.Load(15, "表 & 予定");
    manager.Load(0, "Uncategorized");
    manager.Load(3, "Home");
    CMenu menu;
    menu.CreatePopupMenu();

    EXPECT_EQ(FillCategoryMenu(&manager, nullptr, &menu, kFirstCommand), 3);

    struct Item {
        UINT command;
        const char* utf8;
    };
    int position = 0;
    for (const Item& want :
         {Item{1574, "Uncategorized"}, Item{1577, "Home"}, Item{1589, "表 && 予定"}}) {
        CString text;
        CString wanted;
        CodePage::System().FromUtf8(want.utf8, wanted.Bytes());
        EXPECT_EQ(menu.GetMenuItemID(position), want.command);
        menu.GetMenuString(static_cast<UINT>(position), text, MF_BYPOSITION);
        EXPECT_EQ(text, wanted) << want.utf8;
        ++position;
    }
    EXPECT_EQ(menu.GetMenuItemCount(), 3);
    EXPECT_EQ(FillCategoryMenu(nullptr, nullptr, &menu, kFirstCommand), 0);
}

}  // namespace

}  // namespace orvo
