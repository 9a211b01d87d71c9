// The card widget: its cards, their order and size, selection, keys and clicks.
// SPDX-License-Identifier: MIT
#include <libraries/orvoui/CardFixture.h>

namespace orvo {
namespace {

using CardView = CardFixture;

CSize SizeOf(const COrvoUICardView& cards) {
    int width = 1;
    int height = 1;
    cards.GetCardSize(&width, &height);
    return {width, height};
}

int CompareDown(LPARAM first, LPARAM second, LPARAM factor) {
    return static_cast<int>((second - first) * factor);
}

TEST_F(CardView, CardsComeAndGoWithTheirSelection) {
    cards.SelectCard(2, 1, 1);
    cards.SelectCard(4, 1, 1);

    cards.InsertCard(0, Data(9), 1);
    cards.DeleteCard(5, 1);
    cards.InsertCard(99, Data(8), 1);

    EXPECT_THAT(AllData(), ElementsAre(9, 1, 2, 3, 4, 6, 7, 8));
    EXPECT_THAT(Selected(), ElementsAre(3));
    cards.DeleteAllCards(1);
    EXPECT_EQ(cards.GetCardCount(), 0);
    EXPECT_EQ(cards.GetFirstSelectedCardPosition(), nullptr);
}

TEST_F(CardView, WithoutAWindowEverythingIsHarmless) {
    RecordingCards none;
    POSITION nowhere = nullptr;
    none.InsertCard(0, Data(1), 1);
    none.SelectAndScrollCard(0, 1);
    none.SetCardSize(300, 200, 1);

    EXPECT_EQ(none.GetCardCount() + none.GetSelectedCount(), 0);
    EXPECT_EQ(SizeOf(none), CSize());
    EXPECT_EQ(none.FindCardIndexByData(Data(1)), -1);
    EXPECT_EQ(none.GetFirstSelectedCardPosition(), nullptr);
    EXPECT_EQ(none.GetNextSelectedCardIndex(nowhere), -1);
    EXPECT_EQ(none.SortItems(CompareDown, 1), 0);
}

TEST_F(CardView, ASortKeepsDataAndSelectionTogether) {
    cards.SelectCard(5, 1, 1);
    cards.SelectCard(2, 1, 1);

    ASSERT_NE(cards.SortItems(CompareDown, 1), 0);

    EXPECT_THAT(AllData(), ElementsAre(7, 6, 5, 4, 3, 2, 1));
    EXPECT_THAT(Selected(), ElementsAre(1, 4));
    EXPECT_EQ(cards.GetFocusCardIndex(), 4) << "on the card that was selected last";
    EXPECT_EQ(cards.FindCardIndexByData(Data(3)), 4);
    EXPECT_EQ(cards.SortItems(nullptr, 0), 0);
}

TEST_F(CardView, ASelectionIsToldCardByCardAndSeveralAtOnce) {
    cards.SelectCard(1, 1, 1);
    cards.SelectCard(1, 1, 1);
    cards.SelectAllCards(1, 1);
    cards.SelectAllCards(1, 1);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("selected 1", "selected -1"));

    cards.SelectCard(3, 0, 1);
    cards.SelectAllCards(0, 1);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("deselected 3", "deselected -1"));
}

TEST_F(CardView, SelectAndScrollMakesACardTheOnlySelectedOneAndShowsIt) {
    cards.SelectCard(1, 1, 1);

    cards.SelectAndScrollCard(6, 1);
    EXPECT_THAT(cards.TakeTold(), ElementsAre("selected 1", "deselected 1", "selected 6"));
    cards.SelectAndScrollCard(6, 1);

    EXPECT_THAT(cards.told, IsEmpty()) << "nothing changed";
    EXPECT_THAT(Selected(), ElementsAre(6));
    EXPECT_EQ(cards.GetFocusCardIndex(), 6);
    EXPECT_EQ(Peer().TopRow(), 4) << "card 6 is the first of the last column";
}

TEST_F(CardView, WhoIsToldOfASelectionMayDestroyTheWindow) {
    cards.SelectCard(1, 1, 1);
    cards.closesWhenTold = true;

    cards.SelectAndScrollCard(6, 1);

    EXPECT_EQ(cards.GetSafeHwnd(), nullptr);
    EXPECT_EQ(cards.GetCardCount(), 0);
}

TEST_F(CardView, ACardSizeIsHeldWithinItsBounds) {
    EXPECT_EQ(SizeOf(cards), (CSize{240, 160})) << "at the start";
    constexpr std::pair<CSize, CSize> kRows[] = {{{300, 200}, {300, 200}},
                                                 {{79, 0}, {80, 40}},
                                                 {{2001, 99999}, {2000, 2000}},
                                                 {{-1, -1}, {80, 40}}};
    for (const auto& [in, want] : kRows) {
        cards.SetCardSize(in.cx, in.cy, 1);
        EXPECT_EQ(SizeOf(cards), want) << in.cx;
    }
}

TEST_F(CardView, AWindowThatGrowsStillShowsCards) {
    cards.EnsureVisible(6);
    ASSERT_EQ(Peer().TopRow(), 4);

    cards.MoveWindow({0, 0, 608, 1200});

    EXPECT_THAT(Peer().VisibleRows(), ElementsAre(0, 1, 2, 3, 4, 5, 6));
}

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
