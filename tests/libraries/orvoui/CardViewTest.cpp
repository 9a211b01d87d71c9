// The card widget: its cards, their order, their size and their selection.
// SPDX-License-Identifier: MIT
#include <libraries/orvoui/CardFixture.h>

namespace orvo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
    struct Row {
        CSize in, want;
    };
    for (const Row& row : {Row{{300, 200}, {300, 200}}, Row{{79, 0}, {80, 40}},
                           Row{{2001, 99999}, {2000, 2000}}, Row{{-1, -1}, {80, 40}}}) {
        cards.SetCardSize(row.in.cx, row.in.cy, 1);
        EXPECT_EQ(SizeOf(cards), row.want) << row.in.cx;
    }
}

TEST_F(CardView, AWindowThatGrowsStillShowsCards) {
    cards.EnsureVisible(6);
    ASSERT_EQ(Peer().TopRow(), 4);

    cards.MoveWindow({0, 0, 608, 1200});

    EXPECT_THAT(Peer().VisibleRows(), ElementsAre(0, 1, 2, 3, 4, 5, 6));
}

}  // namespace

}  // namespace orvo
