// Items of a menu are found by their locators wherever they stand.
// SPDX-License-Identifier: MIT
#include <optional>

#include <gtest/gtest.h>

#include <orvoshare/integration/MenuItemLocater.h>

namespace orvo {
namespace {

constexpr unsigned int kUntouched = 77;

// A bar with two pop-up menus of three items each.
struct MenuItemLocaterTest : testing::Test {
    MenuItemLocaterTest() {
        bar.CreatePopupMenu();
        for (const char* title : {"File", "Edit"}) {
            auto popup = std::make_unique<CMenu>();
            popup->CreatePopupMenu();
            for (UINT command = 1; command <= 3; ++command)
                popup->AppendMenu(MF_STRING, command, title);
            bar.AppendMenu(std::move(popup), title);
        }
        edit = GetSubMenu(bar.GetSafeHmenu(), 1);
    }

    // That of the item in the menu, or in its submenu of another locator.
    unsigned int Position(HMENU menu, unsigned long locator,
                          std::optional<unsigned long> submenu = {}) {
        unsigned int position = kUntouched;
        const int found = submenu ? locater.GetMenuItemPosition(menu, *submenu, locator, &position)
                                  : locater.GetMenuPosition(menu, locator, &position);
        EXPECT_EQ(found, position == kUntouched ? 0 : 1);
        return position;
    }

    CMenu bar;
    HMENU edit = nullptr;
    CMenuItemLocater locater;
};

TEST_F(MenuItemLocaterTest, TheFirstItemIsFoundWhereverItHasMoved) {
    EXPECT_EQ(locater.SetMenuLocator(edit, 2, 0xFFFFFFFF), 1);
    EXPECT_EQ(Position(edit, 0xFFFFFFFF), 2U);
    locater.SetMenuLocator(edit, 1, 0xFFFFFFFF);
    EXPECT_EQ(Position(edit, 0xFFFFFFFF), 1U) << "the first of two";
    CMenu::FromHandle(edit)->InsertMenu(0, 9, "New");
    EXPECT_EQ(Position(edit, 0xFFFFFFFF), 2U);
    EXPECT_EQ(Position(edit, 5), kUntouched);
    EXPECT_EQ(Position(edit, 0), 0U) << "the first one without a locator";
}

TEST_F(MenuItemLocaterTest, AnItemIsLookedForInTheSubmenuThatIsNamed) {
    locater.SetMenuLocator(bar.GetSafeHmenu(), 1, 10);
    locater.SetMenuLocator(GetSubMenu(bar.GetSafeHmenu(), 0), 0, 5);
    locater.SetMenuLocator(edit, 2, 5);

    EXPECT_EQ(Position(bar.GetSafeHmenu(), 5, 10), 2U);
    EXPECT_EQ(Position(bar.GetSafeHmenu(), 5, 11), kUntouched) << "no such submenu";
    EXPECT_EQ(Position(bar.GetSafeHmenu(), 6, 10), kUntouched) << "no such item";
    EXPECT_EQ(Position(bar.GetSafeHmenu(), 5), kUntouched) << "items of submenus don't count";

    bar.AppendMenu(MF_STRING, 9, "Help");
    locater.SetMenuLocator(bar.GetSafeHmenu(), 2, 12);
    EXPECT_EQ(Position(bar.GetSafeHmenu(), 0, 12), kUntouched) << "an item without a submenu";
}

TEST_F(MenuItemLocaterTest, NothingIsFoundWhereThereIsNoMenuOrItem) {
    EXPECT_EQ(locater.SetMenuLocator(edit, 3, 5), 0);
    EXPECT_EQ(locater.SetMenuLocator(nullptr, 0, 5), 0);
    EXPECT_EQ(Position(nullptr, 0), kUntouched);
    bar.DestroyMenu();
    EXPECT_EQ(GetMenuItemCount(edit), -1) << "submenus go with their menu";
    EXPECT_EQ(Position(edit, 0), kUntouched);
    EXPECT_EQ(locater.InitializeMenuPositions(edit), 0);
}

}  // namespace
}  // namespace orvo
