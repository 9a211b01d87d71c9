// The peers without a screen: the suites of all peers run on them, and they stand exactly where
// their rules say.
// SPDX-License-Identifier: MIT
#include <random>
#include <tuple>

#include <gmock/gmock.h>

#include <contract/PeerSystem.h>
#include <platform/window/list/ListInput.h>
#include <platform/window/list/RowSelection.h>
#include <platform/window/memory/MemoryListPeer.h>
#include <platform/window/memory/MemoryWindowSystem.h>

namespace orvo {

std::unique_ptr<WindowSystem> MakeWindowSystem() {
    return std::make_unique<MemoryWindowSystem>();
}

bool RunUntil(WindowSystem& system, const std::function<bool()>& isDone) {
    for (int step = 0; step < 1000 && !isDone(); ++step) {
        dynamic_cast<MemoryWindowSystem&>(system).PassTime(1);
    }
    return isDone();
}

TEST(MemoryListPeer, RowsStandBelowTheHeadingAndIconsInLines) {
    MemoryListPeer list({nullptr, {0, 0, 160, 100}, LVS_REPORT});
    ListColumn column;
    column.width = 90;
    list.InsertColumn(0, column);
    for (int row = 0; row < 5; ++row) list.InsertRow(row, {});
    const std::tuple<const char*, ListMode, int, RowPart, CRect> rows[] = {
        {"below the heading", ListMode::Report, 0, RowPart::Bounds, {0, 20, 90, 38}},
        {"one row further down", ListMode::Report, 1, RowPart::Label, {0, 38, 90, 56}},
        {"two icons in a line", ListMode::Icon, 1, RowPart::Icon, {96, 2, 128, 34}},
        {"the third begins a line", ListMode::Icon, 2, RowPart::Label, {0, 111, 75, 150}},
        {"one small icon in a line", ListMode::SmallIcon, 2, RowPart::Icon, {0, 37, 16, 53}},
    };
    for (const auto& [why, mode, number, part, want] : rows) {
        list.SetMode(mode);
        CRect rect;
        EXPECT_TRUE(list.RowRect(number, part, rect)) << why;
        EXPECT_EQ(rect, want) << why;
    }
}

TEST(RowSelection, AgreesWithAListOfFlagsUnderRandomChanges) {
    std::mt19937 random(7);
    RowSelection selection;
    std::vector<bool> flags;
    const auto below = [&random](int limit) {
        return std::uniform_int_distribution<int>(0, limit - 1)(random);
    };
    for (int step = 0; step < 3000; ++step) {
        const int size = selection.Size();
        const int kind = below(5);
        if (kind < 2 || size == 0) {
            const int row = below(size + 1);
            selection.Insert(row);
            flags.insert(flags.begin() + row, false);
        } else if (kind == 2) {
            const int row = below(size);
            selection.Erase(row);
            flags.erase(flags.begin() + row);
        } else {
            const int first = below(size);
            const int last = first + below(size - first);
            selection.SetRange(first, last, kind == 3);
            std::fill(flags.begin() + first, flags.begin() + last + 1, kind == 3);
        }
        std::vector<bool> got(flags.size());
        int count = 0;
        for (int row = selection.Next(-1); row != -1; row = selection.Next(row), ++count) {
            got[static_cast<std::size_t>(row)] = true;
        }
        ASSERT_EQ(got, flags) << "step " << step;
        ASSERT_EQ(selection.Count(), count);
    }
}

namespace {

using testing::ElementsAre;

// Cards of 100 by 50 in cells of 108 by 58: three in a column, two columns and a part of a third.
struct CardMode : testing::Test {
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
    list.SetCardSize({-5, 0});
    EXPECT_EQ(list.CardSize(), (CSize{1, 1}));
}

TEST_F(CardMode, CardsInLinesAreAsWideAsThoseDivideEvenlyAndScrollDown) {
    list.SetCardFlow(CardFlow::Lines);

    EXPECT_EQ(RectOf(1), (CRect{129, 8, 242, 58}));
    EXPECT_EQ(RectOf(2), (CRect{8, 66, 121, 116}));
    list.SetFocusRow(0);
    EXPECT_EQ(RowForKey(list, VK_DOWN), 2);
    list.EnsureVisible(19, false);
    EXPECT_EQ(list.TopRow(), 14);
    EXPECT_EQ(list.HitTest(RectOf(15).CenterPoint()).row, 15);
    Resize(90, 180);
    EXPECT_EQ(RectOf(list.TopRow()), (CRect{8, 8, 82, 58})) << "narrower than it was set";
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
