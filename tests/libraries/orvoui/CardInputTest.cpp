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

TEST_F(CardInput, ShiftExtendsTheSelectionAndCtrlAddsToIt) {
    system.Click(cards, kOnCard1);
    system.Click(cards, kOnCard3, MK_SHIFT);
    EXPECT_THAT(Selected(), ElementsAre(1, 2, 3));
    system.Click(cards, kOnCard1, MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(2, 3));
    system.Click(cards, kBesideAll, MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(2, 3));

    EXPECT_THAT(cards.TakeTold(), ElementsAre("selected 1", "selected -1", "deselected 1"));
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
    system.DoubleClick(cards, kOnCard0);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("selected 0", "double 0"));
    system.DoubleClick(cards, kBesideAll);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("deselected 0"));
}

TEST_F(CardInput, ADoubleClickOnACardThatIsPartlyInViewMeetsItTwice) {
    system.DoubleClick(cards, kOnCard4);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("selected 4", "double 4"));
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

TEST_F(CardInput, KeysMoveSelectionAndFocusAndScroll) {
    struct Row {
        const char* why;
        UINT key;
        std::initializer_list<UINT> held;
        std::vector<int> selected;
        int focus, top;
    };
    const Row rows[] = {
        {"the first where none had the focus", VK_DOWN, {}, {0}, 0, 0},
        {"a column on", VK_RIGHT, {}, {2}, 2, 0},
        {"Shift extends", VK_DOWN, {VK_SHIFT}, {2, 3}, 3, 0},
        {"Ctrl leaves the selection", VK_UP, {VK_CONTROL}, {2, 3}, 2, 0},
        {"into a column out of view", VK_RIGHT, {}, {4}, 4, 2},
        {"Ctrl and Space toggle", VK_SPACE, {VK_CONTROL}, {}, 4, 2},
        {"to the end", VK_END, {}, {6}, 6, 4},
        {"Page Up to the first in view", VK_PRIOR, {}, {4}, 4, 4},
        {"and a page further", VK_PRIOR, {}, {1}, 1, 0},
    };
    for (const Row& row : rows) {
        system.PressKey(row.key, row.held);
        EXPECT_EQ(Selected(), row.selected) << row.why;
        EXPECT_EQ(cards.GetFocusCardIndex(), row.focus) << row.why;
        EXPECT_EQ(Peer().TopRow(), row.top) << row.why;
    }
}

TEST_F(CardInput, KeysGoOnFromTheCardThatTheProgramSelected) {
    system.Click(cards, kOnCard0);
    cards.SelectAllCards(0, 1);
    cards.SelectCard(3, 1, 1);

    system.PressKey(VK_DOWN);
    EXPECT_THAT(Selected(), ElementsAre(4));

    cards.SelectCard(-1, 1, 1);
    cards.SelectCard(0, 0, 1);
    EXPECT_EQ(cards.GetFocusCardIndex(), 4);
}

TEST_F(CardInput, ReturnIsToldOnceHoweverItComesAndSelectsNothing) {
    cards.SelectAndScrollCard(2, 1);
    cards.TakeTold();

    system.PressKey(VK_RETURN);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("return"));
    cards.SendMessage(WM_KEYDOWN, VK_RETURN);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("return"));
    EXPECT_THAT(Selected(), ElementsAre(2));
}

TEST_F(CardInput, ReturnInAChildIsTheChilds) {
    CWnd child;
    child.Create(0, {0, 0, 10, 10}, &cards, 2);
    child.SetFocus();
    system.PressKey(VK_RETURN);
    EXPECT_THAT(cards.told, IsEmpty());
}

}  // namespace

}  // namespace orvo
