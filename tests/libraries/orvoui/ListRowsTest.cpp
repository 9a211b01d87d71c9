// Rows of the list widget: selection, modes, painting, and what a masked one shows.
// SPDX-License-Identifier: MIT
#include <libraries/orvoui/ListFixture.h>

namespace orvo {

namespace {

using testing::ElementsAre;

constexpr DWORD kPrivate = 99;
using Kind = DrawOperation::Kind;

class ListRows : public ListFixture {
protected:
    void SetUp() override {
        ListFixture::SetUp();
        list.ShowColumn(0, 100);
        list.ShowColumn(1, 30);
    }
};

TEST_F(ListRows, CellsArePaintedFromLeftToRight) {
    const int dragged[] = {1, 0};
    list.SetColumnOrderArray(2, dragged);
    Insert(100);
    Insert(101);
    list.SelectItem(1, 1);

    Paint();

    EXPECT_THAT(list.cells,
                ElementsAre("100 column 1 at 0,20,30,38", "100 column 0 at 30,20,130,38",
                            "101 column 1 at 0,38,30,56 selected",
                            "101 column 0 at 30,38,130,56 selected"));
    EXPECT_EQ(list.textFlags, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

TEST_F(ListRows, AColumnOnTheRightHandsItsSideOnToTheText) {
    LVCOLUMN content;
    content.mask = LVCF_FMT;
    content.fmt = LVCFMT_RIGHT;
    list.SetColumn(1, content);
    Insert(100);
    Paint();
    EXPECT_NE(list.textFlags & DT_RIGHT, 0U);
}

TEST_F(ListRows, TheGroundTellsSelectionAndAFrameTellsTheFocus) {
    Insert(100);
    list.SetFocus();
    list.SelectAndScroll(0);

    const Recording& drawn = Paint();

    ASSERT_EQ(drawn.size(), 3U);  // the window's ground, the row's, the frame
    EXPECT_EQ(drawn[1].rect, (CRect{0, 20, 130, 38}));
    EXPECT_EQ(drawn[1].colour, GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(drawn[2].kind, Kind::FocusRect);
    EXPECT_EQ(drawn[2].colour, GetSysColor(COLOR_HIGHLIGHTTEXT));
}

TEST_F(ListRows, AMaskedRowShowsOneBarAndNothingOfItsRecord) {
    Insert(kPrivate);
    Insert(100);
    Insert(0);
    Paint();
    EXPECT_EQ(list.cells.size(), 6U);

    for (const int selected : {0, 1}) {
        list.SelectItem(0, selected);
        list.SetMaskPrivate(1);
        const Recording drawn = Paint();
        ASSERT_EQ(list.cells.size(), 4U);
        EXPECT_THAT(list.cells[0], testing::StartsWith("100 "));
        ASSERT_EQ(drawn.size(), 5U);
        const COLORREF ground = drawn[1].colour;
        EXPECT_EQ(ground, GetSysColor(selected != 0 ? COLOR_HIGHLIGHT : COLOR_WINDOW));
        EXPECT_EQ(drawn[2].rect, (CRect{4, 26, 96, 32}));
        EXPECT_NE(drawn[2].colour, ground);
    }

    list.SetMaskPrivate(0);
    EXPECT_FALSE(Peer().InvalidArea().IsRectEmpty());
    Paint();
    EXPECT_EQ(list.cells.size(), 6U);
}

TEST_F(ListRows, KeepSelectionAndFocusFromModeToMode) {
    for (DWORD data = 100; data < 110; ++data) Insert(data);
    list.SelectItem(3, 1);
    list.SelectItem(7, 1);
    EXPECT_EQ(list.SetViewMode(3), 0);
    EXPECT_EQ(list.GetViewMode(), kReportView);

    for (const int mode : {kLargeIconView, kSmallIconView, kReportView}) {
        EXPECT_NE(list.SetViewMode(mode), 0);
        EXPECT_EQ(list.GetViewMode(), mode);
        EXPECT_EQ(list.GetFirstSelectedItem(), 3);
        EXPECT_EQ(list.GetSelectedCount(), 2);
        EXPECT_EQ(list.GetFocusedItem(), 7);
        Paint();
        EXPECT_EQ(list.cells.empty(), mode != kReportView);
    }
}

TEST_F(ListRows, SelectAndScrollLeavesOneSelectedRowWhollyInView) {
    for (DWORD data = 100; data < 120; ++data) Insert(data);
    list.SelectAllItems(1);
    EXPECT_EQ(list.GetSelectedCount(), 20);

    list.SelectAndScroll(19);
    EXPECT_EQ(list.GetFirstSelectedItem(), 19);
    EXPECT_EQ(list.GetSelectedCount(), 1);
    EXPECT_EQ(list.GetFocusedItem(), 19);
    EXPECT_EQ(list.GetSelectionMark(), 19);
    EXPECT_EQ(list.GetTopIndex(), 14);

    list.changes = 0;
    list.SelectAndScroll(19);
    EXPECT_EQ(list.changes, 0) << "nothing has changed";
}

TEST_F(ListRows, OutsideTheListOrWithoutAWindowAreHarmless) {
    Insert(100);
    list.SelectItem(0, 1);
    EXPECT_EQ(list.SelectItem(-1, 0), 0);
    list.SelectAndScroll(1);
    EXPECT_NE(list.IsItemSelected(0), 0);

    list.DestroyWindow();
    EXPECT_EQ(list.InsertRecord(0, nullptr, 0, 0), -1);
    EXPECT_EQ(list.SetViewMode(kReportView), 0);
    EXPECT_EQ(list.FindItemByData(100), -1);
}

TEST_F(ListRows, AskOnlyWhereTheyWereInsertedThatWay) {
    EXPECT_EQ(list.InsertRecord(0, nullptr, 1, -1), 0);
    EXPECT_EQ(list.InsertRecord(5, nullptr, 0, 0), 1);
    list.GetItemText(1, 0);
    EXPECT_EQ(Peer().Content(1).image, 0);
    EXPECT_FALSE(Peer().Content(1).asksImage);
    EXPECT_EQ(list.questions, 0);
    list.GetItemText(0, 0);
    EXPECT_TRUE(Peer().Content(0).asksImage);
    EXPECT_EQ(list.questions, 1);
}

TEST_F(ListRows, AreRepaintedWhenTheDesktopChangesItsColours) {
    Paint();
    list.SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_EQ(Peer().InvalidArea(), (CRect{0, 0, 400, 128}));
}

}  // namespace

}  // namespace orvo
