// Keys and clicks in an address list, and what its lookup box and its owner get of them.
// SPDX-License-Identifier: MIT
#include <orvoshare/addresslist/AddressListWindow.h>
#include <support/CodePages.h>

namespace orvo {

namespace {

using testing::ElementsAre;

class ListKeys : public AddressListTest, public testing::WithParamInterface<LocaleCase> {
protected:
    ListKeys() : AddressListTest(GetParam().codePage) {
        Store({"Adams", "Baker", "Carter", "ムあ"});
        Fill();
    }
};

TEST_P(ListKeys, TypedTextGoesToTheLookupBoxAndFindsTheRow) {
    system.TypeText("ba");
    EXPECT_EQ(BoxText(), "ba");
    EXPECT_THAT(Selected(), ElementsAre(1));

    system.PressKey(VK_BACK);
    EXPECT_EQ(BoxText(), "b");
}

// Their trail bytes on 932, 80 and A0, aren't printable by themselves.
TEST_P(ListKeys, EveryByteOfATypedCharacterGoesToTheBox) {
    system.TypeText("ムあ");
    EXPECT_EQ(BoxText(), "ムあ");
    EXPECT_THAT(Selected(), ElementsAre(3));
}

TEST_P(ListKeys, ControlCharactersStayWithTheList) {
    system.TypeText("b");
    view.DV_SelectAndScroll(3);
    for (const UINT character : {1U, 9U, 13U, 27U, 127U}) {
        view.SendMessage(WM_CHAR, character, 1);
        EXPECT_THAT(Selected(), ElementsAre(3)) << "the box searched again, " << character;
    }
    EXPECT_EQ(BoxText(), "b");
}

TEST_P(ListKeys, KeysThatLeaveTheLookupClearTheBoxAndMove) {
    struct Case {
        UINT key;
        bool clears;
        int row;
    };
    const Case cases[] = {{VK_UP, true, 0},   {VK_DOWN, true, 2},  {VK_PRIOR, true, 0},
                          {VK_NEXT, true, 3}, {VK_HOME, false, 0}, {VK_END, false, 3},
                          {VK_F2, false, 1},  {VK_LEFT, false, 1}};
    for (const Case& each : cases) {
        box.Clear();
        view.DV_SelectAndScroll(1);
        system.TypeText("b");
        ASSERT_EQ(BoxText(), "b");

        system.PressKey(each.key);

        EXPECT_EQ(BoxText(), each.clears ? "" : "b") << each.key;
        EXPECT_THAT(Selected(), ElementsAre(each.row)) << each.key;
    }
}

TEST_P(ListKeys, KeysPressedInTheBoxMoveTheListToo) {
    view.DV_SelectAndScroll(1);
    box.SetFocus();
    system.TypeText("b");

    system.PressKey(VK_DOWN);

    EXPECT_EQ(BoxText(), "");
    EXPECT_THAT(Selected(), ElementsAre(2));
}

TEST_P(ListKeys, AClickClearsTheBoxAndSelects) {
    system.TypeText("b");

    system.Click(view, Cell(2, AddressColumn::Name));

    EXPECT_EQ(BoxText(), "");
    EXPECT_THAT(Selected(), ElementsAre(2));
}

TEST_P(ListKeys, ReturnIsToldAndGoesNoFurther) {
    system.PressKey(VK_RETURN);
    system.PressKey(VK_RETURN, {VK_MENU});
    EXPECT_THAT(owner.told, ElementsAre(kReturnTold, kReturnTold));
    EXPECT_THAT(owner.notified, testing::Not(testing::Contains(NM_RETURN)));

    system.PressKey(VK_SPACE, {VK_MENU});
    EXPECT_EQ(owner.told.size(), 2U);
}

TEST_P(ListKeys, WithoutABoxTheListStillAnswers) {
    view.DV_SetEdit(nullptr);
    view.DV_SelectAndScroll(1);

    system.TypeText("cム");
    system.PressKey(VK_BACK);
    EXPECT_THAT(Selected(), ElementsAre(1));
    system.PressKey(VK_DOWN);
    EXPECT_THAT(Selected(), ElementsAre(2));
    system.Click(view, Cell(0, AddressColumn::Name));
    EXPECT_THAT(Selected(), ElementsAre(0));
}

INSTANTIATE_TEST_SUITE_P(BothCodePages, ListKeys, testing::ValuesIn(kBothCodePages));

}  // namespace

}  // namespace orvo
