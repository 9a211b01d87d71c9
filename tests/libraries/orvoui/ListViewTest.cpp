// The list widget: its columns, rows and modes, what is painted, and the menu of categories.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <vector>

#include <fmt/format.h>

#include <contracts/Category.h>
#include <contracts/ListWidget.h>
#include <platform/text/SystemText.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/memory/MemoryListPeer.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

// Rows whose data word is below 100 are private.
class RecordingList : public COrvoUIListViewCtrl {
public:
    static constexpr DWORD kFirstPublic = 100;

    static const MessageMap& ThisMap() {
        static const MessageMap map{COrvoUIListViewCtrl::ThisMap(),
                                    {OnNotifyReflect<LVN_ITEMCHANGED>(&RecordingList::OnChange),
                                     OnNotifyReflect<LVN_GETDISPINFO>(&RecordingList::OnQuestion)}};
        return map;
    }
    const MessageMap& GetMessageMap() const override { return ThisMap(); }
    int IsRecordPrivate(DWORD data) override { return data != 0 && data < kFirstPublic; }

    using COrvoUIListViewCtrl::GetMainItemRect;
    using COrvoUIListViewCtrl::m_aColumns;
    using COrvoUIListViewCtrl::SubItemFromIndex;

    std::vector<std::string> cells;  // "data column id at left,top,right,bottom", and " selected"
    UINT textFlags = 0;
    bool opensPopups = false;
    int changes = 0;
    int questions = 0;

protected:
    void DrawColumn(CDC* dc, int column, DWORD data, CRect& rect, UINT flags, int reserved,
                    int selected) override {
        if (opensPopups) OUIDrawPopupCellText(dc, "x", &rect, kTextColour, 0, flags);
        EXPECT_EQ(reserved, 0);
        textFlags = flags;
        cells.push_back(fmt::format("{} column {} at {},{},{},{}{}", data, SubItemFromIndex(column),
                                    rect.left, rect.top, rect.right, rect.bottom,
                                    selected != 0 ? " selected" : ""));
    }

private:
    void OnChange(NMHDR*, LRESULT*) { ++changes; }
    void OnQuestion(NMHDR*, LRESULT*) { ++questions; }
};

// Columns 0, 1 and 2, none of them shown. The heading takes 20 pixels, a row 18; six rows fit.
class ListFixture : public testing::Test {
protected:
    void SetUp() override {
        list.Create(LVS_REPORT, {0, 0, 400, 128}, nullptr, 1);
        COrvoLVColumn column;
        column.bShown = 1;  // the widget alone says what is shown
        for (const char* name : {"Name", "Note", "Category"}) {
            column.strHeading = column.strName = name;
            column.nWidth = 100 + 10 * column.nId;
            EXPECT_NE(list.InitializeColumn(&column), 0);
            ++column.nId;
        }
    }

    int Insert(DWORD data) {
        return list.InsertRecord(list.GetItemCount(), reinterpret_cast<void*>(data), 0, 0);
    }
    const Recording& Paint() {
        Peer().ForgetDrawn();
        list.cells.clear();
        list.RedrawWindow();
        return Peer().Drawn();
    }
    MemoryListPeer& Peer() { return dynamic_cast<MemoryListPeer&>(*list.GetPeer()); }

    SystemInForce system;
    RecordingList list;
};

class ListColumns : public ListFixture {
protected:
    // The ids in the heading, from left to right.
    std::vector<int> Heading() {
        std::vector<int> ids(static_cast<std::size_t>(list.GetHeaderCtrl()->GetItemCount()));
        list.GetColumnOrderArray(ids.data());
        for (int& each : ids) each = list.SubItemFromIndex(each);
        return ids;
    }
};

TEST_F(ListColumns, StandInTheOrderOfTheirCallsAtTheWidthsAskedFor) {
    EXPECT_EQ(list.InitializeColumn(&list.m_aColumns[1]), 0) << "the id is there already";
    EXPECT_EQ(list.InitializeColumn(nullptr), 0);
    EXPECT_THAT(Heading(), IsEmpty()) << "hidden at first";

    list.ShowColumn(2, -1);
    list.ShowColumn(0, 70);

    EXPECT_THAT(Heading(), ElementsAre(2, 0));
    EXPECT_EQ(list.GetColumnWidth(0), 120);
    EXPECT_EQ(list.GetColumnWidth(1), 70);
    EXPECT_NE(list.m_aColumns[0].bShown, 0);
    EXPECT_EQ(list.m_aColumns[1].bShown, 0);
}

TEST_F(ListColumns, KeepTheirIdsWhenOneIsDraggedHiddenOrShownAgain) {
    for (const int id : {0, 1, 2}) list.ShowColumn(id, -1);
    const int dragged[] = {2, 0, 1};
    list.SetColumnOrderArray(3, dragged);
    EXPECT_THAT(Heading(), ElementsAre(2, 0, 1));

    list.SetColumnWidth(0, 250);
    EXPECT_NE(list.HideColumn(0), 0);
    EXPECT_THAT(Heading(), ElementsAre(2, 1));
    EXPECT_EQ(list.m_aColumns[0].bShown, 0);
    EXPECT_EQ(list.HideColumn(0), 0);

    list.ShowColumn(0, -1);
    EXPECT_THAT(Heading(), ElementsAre(2, 1, 0));
    EXPECT_EQ(list.GetColumnWidth(2), 250);
}

TEST_F(ListColumns, ShowTheHeadingThatWasGivenLast) {
    COrvoLVColumn picture;
    picture.nId = 3;
    picture.nHeadingImage = 1;
    list.InitializeColumn(&picture);
    list.ShowColumn(0, -1);
    list.ShowColumn(3, 29);

    EXPECT_NE(list.UpdateColumnText(0, "Full name"), 0);
    EXPECT_NE(list.UpdateColumnText(2, "Kind"), 0);
    EXPECT_EQ(list.UpdateColumnText(17, "Fax"), 0);
    list.ShowColumn(2, -1);

    EXPECT_EQ(Peer().Column(0).heading, CString("Full name"));
    EXPECT_EQ(Peer().Column(1).image, 1);
    EXPECT_NE(Peer().Column(1).format & LVCFMT_IMAGE, 0);
    EXPECT_EQ(Peer().Column(2).heading, CString("Kind"));
    EXPECT_EQ(Peer().Column(2).image, -1);
}

TEST_F(ListColumns, OfAWindowThatIsGoneAreHiddenInTheNext) {
    list.ShowColumn(1, -1);
    list.DestroyWindow();
    EXPECT_EQ(list.ShowColumn(0, -1), 0);

    list.Create(LVS_REPORT, {0, 0, 400, 128}, nullptr, 1);
    EXPECT_EQ(list.m_aColumns[1].bShown, 0);
    EXPECT_EQ(list.SubItemFromIndex(0), -1);
    list.ShowColumn(0, -1);
    EXPECT_THAT(Heading(), ElementsAre(0));
}

TEST_F(ListColumns, TheMainOneIsTheFirstThatWasGivenWhereverItStands) {
    Insert(100);
    CRect rect;
    EXPECT_EQ(list.GetMainItemRect(0, &rect), 0);
    list.ShowColumn(1, 30);
    list.ShowColumn(0, 60);

    EXPECT_NE(list.GetMainItemRect(0, &rect), 0);
    EXPECT_EQ(rect, (CRect{30, 20, 90, 38}));
    EXPECT_EQ(list.GetMainItemRect(1, &rect), 0);
    EXPECT_EQ(rect, (CRect{30, 20, 90, 38}));

    list.SetViewMode(kLargeIconView);
    CRect label;
    EXPECT_NE(list.GetMainItemRect(0, &rect), 0);
    EXPECT_TRUE(list.GetItemRect(0, &label, LVIR_LABEL));
    EXPECT_EQ(rect, label);
}

TEST_F(ListColumns, TheHeadingOfTheSortColumnIsMarkedAlsoWhenItIsShownLater) {
    const auto isMarked = [this](int column) {
        return (Peer().Column(column).format & HDF_SORTUP) != 0;
    };
    list.ShowColumn(1, -1);
    EXPECT_EQ(list.SetSortOrder(2, 1), -1);
    list.ShowColumn(2, -1);
    EXPECT_FALSE(isMarked(0));
    EXPECT_TRUE(isMarked(1));

    EXPECT_EQ(list.SetSortOrder(1, 1), 2);

    EXPECT_TRUE(isMarked(0));
    EXPECT_FALSE(isMarked(1));
    EXPECT_EQ(list.GetSortColumn(), 1);
}

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

TEST_F(ListRows, APopupMarkIsSeenWhereThePointerTheSelectionOrTheFocusIs) {
    list.opensPopups = true;
    Insert(100);
    Insert(101);
    const auto marksAt = [&](int y) {
        return std::ranges::count_if(Paint(), [y](const DrawOperation& each) {
            return each.kind == Kind::Fill && each.rect.Size() == CSize{7, 1} &&
                   each.rect.top / 18 == y / 18;
        });
    };
    EXPECT_EQ(marksAt(20), 0);
    Peer().SetHotRow(1);
    EXPECT_EQ(marksAt(20), 0);
    EXPECT_EQ(marksAt(38), 2);
    Peer().SetHotRow(-1);
    EXPECT_EQ(marksAt(38), 0);
    list.SetFocus();
    EXPECT_EQ(list.GetFocusedItem(), -1);
    EXPECT_EQ(marksAt(20), 2) << "keys begin at the first row";
    list.SelectItem(1, 1);
    EXPECT_EQ(marksAt(38), 2);
    EXPECT_EQ(marksAt(20), 0);
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

TEST(CategoryMenu, AGapInTheIndicesIsAGapInTheCommands) {
    for (const LocaleCase& page : kBothCodePages) {
        const LocaleInForce locale(page.tag, page.codePage);
        CCategoryMgr manager;
        manager.Load(15, "表 & 予定");
        manager.Load(0, "Uncategorized");
        manager.Load(3, "Home");
        CMenu menu;
        menu.CreatePopupMenu();

        EXPECT_EQ(FillCategoryMenu(&manager, nullptr, &menu, 1574), 3);

        std::vector<std::string> items;
        for (int item = 0; item < menu.GetMenuItemCount(); ++item) {
            CString text;
            menu.GetMenuString(static_cast<UINT>(item), text, MF_BYPOSITION);
            items.push_back(std::to_string(menu.GetMenuItemID(item)) + ' ' + ToUtf8(text));
        }
        EXPECT_THAT(items, ElementsAre("1574 Uncategorized", "1577 Home", "1589 表 && 予定"));
        EXPECT_EQ(FillCategoryMenu(nullptr, nullptr, &menu, 1574), 0);
    }
}

}  // namespace
}  // namespace orvo
