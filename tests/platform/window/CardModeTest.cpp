// Lists in card mode: where cards stand, what is in view, where keys go.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <gmock/gmock.h>

#include <platform/window/list/ListInput.h>
#include <platform/window/memory/MemoryListPeer.h>

namespace orvo {

namespace {

using testing::ElementsAre;

// Cards of 100 by 50 in cells of 108 by 58: three in a column, two columns and a part of a third.
class CardMode : public testing::Test {
protected:
    void SetUp() override {
        list.SetMode(ListMode::Card);
        list.SetCardSize({100, 50});
        for (int row = 0; row < 20; ++row) list.InsertRow(row, {});
    }

    CRect RectOf(int row) const {
        CRect rect;
        EXPECT_TRUE(list.RowRect(row, RowPart::Bounds, rect));
        return rect;
    }
    void Resize(int width, int height) { list.SetPlace({0, 0, width, height}); }

    MemoryListPeer list{{nullptr, {0, 0, 250, 180}, 0}};
};

TEST_F(CardMode, CardsFlowDownColumnsAndScrollByThem) {
    EXPECT_EQ(RectOf(0), (CRect{8, 8, 108, 58}));
    EXPECT_EQ(RectOf(2), (CRect{8, 124, 108, 174}));
    EXPECT_EQ(RectOf(3), (CRect{116, 8, 216, 58}));
    EXPECT_EQ(list.RowsPerLine(), 3);
    EXPECT_EQ(list.RowsPerPage(), 6);
    EXPECT_THAT(list.VisibleRows(), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8));

    ASSERT_TRUE(list.EnsureVisible(19, false));

    EXPECT_EQ(list.TopRow(), 15);
    EXPECT_EQ(RectOf(19), (CRect{116, 66, 216, 116}));
    EXPECT_EQ(RectOf(0), (CRect{-532, 8, -432, 58}));
    EXPECT_THAT(list.VisibleRows(), ElementsAre(15, 16, 17, 18, 19));
}

TEST_F(CardMode, AsManyCardsStandInAColumnAsFit) {
    const std::tuple<const char*, int, int, int, int> rows[] = {
        {"exactly three columns of three", 324, 174, 3, 9},
        {"a pixel is missing to the third card", 324, 173, 2, 6},
        {"a pixel is missing to the third column", 323, 174, 3, 6},
        {"at least one where none fits", 20, 20, 1, 1},
        {"at least one where there is no room at all", 0, 0, 1, 1}};
    for (const auto& [why, width, height, inColumn, inPage] : rows) {
        Resize(width, height);
        EXPECT_EQ(list.RowsPerLine(), inColumn) << why;
        EXPECT_EQ(list.RowsPerPage(), inPage) << why;
    }
}

TEST_F(CardMode, OnlyTheCardIsHitAndNotItsGutter) {
    list.EnsureVisible(9, false);  // columns 2 and 3
    const std::tuple<const char*, CPoint, int> rows[] = {
        {"the first pixel", {8, 8}, 6},
        {"left of it", {7, 8}, -1},
        {"above it", {8, 7}, -1},
        {"the last pixel", {107, 57}, 6},
        {"right of it", {108, 57}, -1},
        {"the gutter between two cards", {50, 62}, -1},
        {"the one below", {50, 66}, 7},
        {"the next column", {116, 8}, 9},
        {"below the column stands no part of another card", {50, 179}, -1},
        {"a card that is partly in view", {249, 10}, 12}};
    for (const auto& [why, point, want] : rows) EXPECT_EQ(list.HitTest(point).row, want) << why;
    list.EnsureVisible(19, false);
    EXPECT_EQ(list.HitTest({120, 130}).row, -1) << "behind the last card";
}

TEST_F(CardMode, APartOfACardIsEnoughOnlyWhereItIsSaid) {
    list.EnsureVisible(8, true);
    EXPECT_EQ(list.TopRow(), 0) << "26 pixels of it are in view";
    list.EnsureVisible(8, false);
    EXPECT_EQ(list.TopRow(), 3);

    list.EnsureVisible(0, false);
    Resize(224, 180);
    list.EnsureVisible(8, true);
    EXPECT_EQ(list.TopRow(), 3) << "of the third column only the gutter was";
}

TEST_F(CardMode, ANewSizeKeepsTheFirstCardInView) {
    list.EnsureVisible(16, false);
    ASSERT_EQ(list.TopRow(), 12);

    list.SetCardSize({100, 80});

    EXPECT_EQ(list.RowsPerLine(), 2);
    EXPECT_EQ(list.TopRow(), 12);
    EXPECT_EQ(list.CardSize(), (CSize{100, 80}));
    list.SetCardSize({-5, 0});
    EXPECT_EQ(list.CardSize(), (CSize{1, 1}));
}

TEST_F(CardMode, CardsHaveNoPlacesOfTheirOwn) {
    list.SetMode(ListMode::Icon);
    list.SetIconPosition(3, {5000, 5000});

    list.SetMode(ListMode::Card);

    EXPECT_FALSE(list.SetIconPosition(4, {0, 0}));
    EXPECT_EQ(RectOf(3), (CRect{116, 8, 216, 58}));
    EXPECT_EQ(list.VisibleRows().size(), 9U);
}

TEST_F(CardMode, KeysGoAlongTheColumnsAndFromColumnToColumn) {
    const std::tuple<const char*, UINT, int, int> rows[] = {
        {"down the column", VK_DOWN, 1, 2},
        {"on to the next column", VK_DOWN, 2, 3},
        {"back to the one before", VK_UP, 3, 2},
        {"nothing before the first", VK_UP, 0, 0},
        {"one column on", VK_RIGHT, 4, 7},
        {"one column back", VK_LEFT, 4, 1},
        {"no column before the first", VK_LEFT, 1, 1},
        {"no card at that height in the last", VK_RIGHT, 17, 17},
        {"the last in view", VK_NEXT, 1, 5},
        {"a page on", VK_NEXT, 5, 10},
        {"the first in view", VK_PRIOR, 4, 0},
        {"the first of all", VK_HOME, 9, 0},
        {"the last of all", VK_END, 9, 19},
        {"the first, where none has the focus", VK_DOWN, -1, 0}};
    for (const auto& [why, key, from, want] : rows) {
        list.EnsureVisible(0, false);
        list.SetFocusRow(from);
        EXPECT_EQ(RowForKey(list, key), want) << why;
    }
}

TEST_F(CardMode, OneCardIsPaintedAnewAlone) {
    list.Update();
    list.InvalidateRows(4, 4);
    EXPECT_EQ(list.InvalidArea(), RectOf(4));
}

}  // namespace

}  // namespace orvo
