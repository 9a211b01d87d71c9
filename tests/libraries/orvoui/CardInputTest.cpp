// The card widget: keys and clicks, and what is told of them.
// SPDX-License-Identifier: MIT
#include <libraries/orvoui/CardFixture.h>

namespace orvo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using CardInput = CardFixture;

constexpr CPoint kOnCard0{20, 20};
constexpr CPoint kOnCard1{20, 200};
constexpr CPoint kOnCard3{300, 200};
constexpr CPoint kOnCard4{600, 20};  // partly in view
constexpr CPoint kBesideAll{250, 100};

TEST_F(CardInput, AClickSelectsOneCardAndTellsOfItOnce) {
    system.Click(cards, kOnCard1);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("selected 1"));
    system.Click(cards, kOnCard1);
    EXPECT_THAT(cards.TakeTold(), IsEmpty());

    system.Click(cards, kOnCard3);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("deselected 1", "selected 3"));
    EXPECT_EQ(cards.GetFocusCardIndex(), 3);

    system.Click(cards, kBesideAll);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("deselected 3"));
}

TEST_F(CardInput, ShiftAndCtrlReachTheSelectionAndAreTold) {
    system.Click(cards, kOnCard1);
    system.Click(cards, kOnCard3, MK_SHIFT);
    system.Click(cards, kOnCard1, MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(2, 3));
    EXPECT_THAT(cards.TakeTold(), ElementsAre("selected 1", "selected -1", "deselected 1"));

    system.PressKey(VK_RIGHT);
    system.PressKey(VK_DOWN, {VK_SHIFT});
    EXPECT_THAT(Selected(), ElementsAre(3, 4)) << "from card 1, which had the focus";
    system.PressKey(VK_SPACE, {VK_CONTROL});
    EXPECT_THAT(Selected(), ElementsAre(3));
    EXPECT_EQ(cards.GetFocusCardIndex(), 4);
}

TEST_F(CardInput, ASelectedCardKeepsTheOthersUntilTheButtonComesUp) {
    cards.SelectAllCards(1, 1);
    const LPARAM point = MAKELPARAM(kOnCard1.x, kOnCard1.y);

    cards.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, point);
    EXPECT_EQ(cards.GetSelectedCount(), 7);
    cards.SendMessage(WM_LBUTTONUP, 0, point);

    EXPECT_THAT(Selected(), ElementsAre(1));
}

TEST_F(CardInput, ADoubleClickIsToldOnACardOnly) {
    system.DoubleClick(cards, kOnCard4);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("selected 4", "double 4"));
    system.DoubleClick(cards, kBesideAll);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("deselected 4"));
}

TEST_F(CardInput, TheRightButtonSelectsACardUnlessItIsSelected) {
    system.RightClick(cards, kOnCard0);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("selected 0", "right 0"));
    EXPECT_EQ(cards.rightPoint, kOnCard0);

    cards.SelectCard(3, 1, 1);
    cards.TakeTold();
    system.RightClick(cards, kOnCard0);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("right 0"));
    EXPECT_THAT(Selected(), ElementsAre(0, 3));
    EXPECT_EQ(cards.GetFocusCardIndex(), 0);

    system.RightClick(cards, kBesideAll);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("deselected -1", "right -1"));
}

TEST_F(CardInput, NothingIsToldOfAWindowThatASelectionDestroyed) {
    cards.closesWhenTold = true;
    system.RightClick(cards, kOnCard0);
    EXPECT_THAT(cards.told, ElementsAre("selected 0"));
}

TEST_F(CardInput, KeysGoOnFromTheCardThatTheProgramSelected) {
    cards.SelectCard(3, 1, 1);

    system.PressKey(VK_DOWN);

    EXPECT_THAT(Selected(), ElementsAre(4));
}

TEST_F(CardInput, ReturnIsToldOnceHoweverItComesButThatOfAChild) {
    system.PressKey(VK_RETURN);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("return"));
    cards.SendMessage(WM_KEYDOWN, VK_RETURN);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("return"));

    CWnd child;
    child.Create(0, {0, 0, 10, 10}, &cards, 2);
    child.SetFocus();
    system.PressKey(VK_RETURN);
    EXPECT_THAT(cards.told, IsEmpty());
}

}  // namespace

}  // namespace orvo
