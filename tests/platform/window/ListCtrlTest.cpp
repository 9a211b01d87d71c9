// List controls: keys and clicks, texts that are asked for, sorting, painting.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <random>
#include <tuple>

#include <platform/window/NotingList.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/list/ListSort.h>
#include <platform/window/memory/MemoryListPeer.h>

namespace orvo {

namespace {

// Six rows are in view: 128 pixels, of which the heading takes 20.
struct ListCtrlTest : testing::Test {
    void SetUp() override {
        parent.Create(WS_POPUP, {0, 0, 400, 300}, nullptr, 0);
        list.Create(LVS_REPORT, {0, 0, 400, 128}, &parent, 1);
        list.InsertColumn(0, "Name", LVCFMT_LEFT, 100);
        list.InsertColumn(1, "Category", LVCFMT_RIGHT, 80);
        for (int row = 0; row < 20; ++row) Insert(row, 1000 + row);
        list.SetFocus();
    }

    void Insert(int row, LPARAM data) {
        LVITEM item;
        item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
        item.iItem = row;
        item.pszText = LPSTR_TEXTCALLBACK;
        item.iImage = I_IMAGECALLBACK;
        item.lParam = data;
        EXPECT_EQ(list.InsertItem(item), row);
    }

    std::vector<DWORD> Data() const {
        std::vector<DWORD> data;
        for (int row = 0; row < list.GetItemCount(); ++row) data.push_back(list.GetItemData(row));
        return data;
    }
    MemoryListPeer& Peer() { return dynamic_cast<MemoryListPeer&>(*list.GetPeer()); }

    SystemInForce system;
    CWnd parent;
    NotingList list;
};

TEST_F(ListCtrlTest, KeysMoveFocusAndSelection) {
    // The key, one that is held with it, then focus, selection and top.
    const std::tuple<const char*, UINT, UINT, int, std::vector<int>, int> rows[] = {
        {"the first key goes to the first row", VK_DOWN, {}, 0, {0}, 0},
        {"the next one on", VK_DOWN, {}, 1, {1}, 0},
        {"Shift draws a range", VK_DOWN, {VK_SHIFT}, 2, {1, 2}, 0},
        {"and back over its anchor", VK_HOME, {VK_SHIFT}, 0, {0, 1}, 0},
        {"no row is above the first", VK_UP, {}, 0, {0}, 0},
        {"Ctrl moves the focus alone", VK_DOWN, {VK_CONTROL}, 1, {0}, 0},
        {"Ctrl and space add the row", VK_SPACE, {VK_CONTROL}, 1, {0, 1}, 0},
        {"and take it away", VK_SPACE, {VK_CONTROL}, 1, {0}, 0},
        {"a page goes to the last row in view", VK_NEXT, {}, 5, {5}, 0},
        {"then a page on", VK_NEXT, {}, 10, {10}, 5},
        {"and back to the first in view", VK_PRIOR, {}, 5, {5}, 5},
        {"the end comes into view", VK_END, {}, 19, {19}, 14},
        {"no row is below the last", VK_DOWN, {}, 19, {19}, 14},
        {"left and right have no use in a report", VK_LEFT, {}, 19, {19}, 14},
        {"the start comes into view", VK_HOME, {}, 0, {0}, 0},
    };
    for (const auto& [why, key, held, focus, selected, top] : rows) {
        system.PressKey(key, {held});
        EXPECT_EQ(std::tuple(list.Focus(), list.Selected(), list.GetTopIndex()),
                  std::tuple(focus, selected, top))
            << why;
    }
}

TEST_F(ListCtrlTest, ArrowsGoFromIconToIconAndFromLineToLine) {
    list.SetView(static_cast<int>(LVS_ICON));  // five in a line
    for (const UINT key : {VK_HOME, VK_RIGHT, VK_DOWN, VK_DOWN, VK_LEFT, VK_UP}) {
        system.PressKey(key);
    }
    EXPECT_THAT(list.Selected(), ElementsAre(5));
}

TEST_F(ListCtrlTest, ClicksSelectAndAreTold) {
    system.Click(list, list.Cell(2, 1));
    system.Click(list, list.Cell(4), MK_SHIFT);
    EXPECT_THAT(list.Selected(), ElementsAre(2, 3, 4));
    system.Click(list, list.Cell(3), MK_CONTROL);
    EXPECT_THAT(list.Selected(), ElementsAre(2, 4));
    system.RightClick(list, list.Cell(4));
    EXPECT_THAT(list.Selected(), ElementsAre(2, 4));
    system.RightClick(list, list.Cell(0));
    EXPECT_THAT(list.Selected(), ElementsAre(0));
    system.Click(list, {390, 60});
    EXPECT_THAT(list.Selected(), IsEmpty());

    EXPECT_THAT(list.ClickCodes(),
                ElementsAre(NM_CLICK, NM_CLICK, NM_CLICK, NM_RCLICK, NM_RCLICK, NM_CLICK));
    EXPECT_EQ(std::pair(list.clicks[0].row, list.clicks[0].column), std::pair(2, 1));
    EXPECT_EQ(list.clicks[5].row, -1);
}

TEST_F(ListCtrlTest, ASelectedRowKeepsTheOthersUntilItsClickWasTold) {
    system.Click(list, list.Cell(2));
    system.Click(list, list.Cell(4), MK_SHIFT);
    list.clicks.clear();

    system.Click(list, list.Cell(3, 1));

    ASSERT_EQ(list.clicks.size(), 1U);
    EXPECT_EQ(list.clicks[0].selected, 3U);
    EXPECT_THAT(list.Selected(), ElementsAre(3));
}

TEST_F(ListCtrlTest, ADoubleClickIsToldOnceBetweenItsClicks) {
    system.DoubleClick(list, list.Cell(1));

    EXPECT_THAT(list.ClickCodes(), ElementsAre(NM_CLICK, NM_DBLCLK, NM_CLICK));
}

TEST_F(ListCtrlTest, AListForOneSelectedRowHoldsNoMore) {
    list.ModifyStyle(0, LVS_SINGLESEL);
    system.Click(list, list.Cell(1));
    system.Click(list, list.Cell(3), MK_CONTROL);
    system.PressKey(VK_DOWN, {VK_SHIFT});
    EXPECT_THAT(list.Selected(), ElementsAre(4));
    list.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_THAT(list.Selected(), ElementsAre(2));
}

TEST_F(ListCtrlTest, TextsPicturesAndTipsAreAskedFor) {
    EXPECT_EQ(list.GetItemText(3, 0), CString("asked 1003"));
    EXPECT_EQ(list.GetInfoTip(3), CString("<b>tip of 3"));
    EXPECT_EQ(list.GetInfoTip(20), CString());
    EXPECT_EQ(list.InsertItem(0, "told"), 0);
    EXPECT_EQ(list.GetItemText(0, 0), CString("told"));
}

int ByLastDigit(long left, long right, long argument) {
    return static_cast<int>((left % 10 - right % 10) * argument);
}

TEST_F(ListCtrlTest, ASortKeepsEqualRowsInOrderAndTheSelectionOnItsRows) {
    list.SetItemState(13, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);

    EXPECT_TRUE(list.SortItems(ByLastDigit, -1));

    EXPECT_EQ(std::pair(Data()[0], Data()[1]), std::pair(1009UL, 1019UL));
    EXPECT_EQ(Data()[13], 1013U);
    EXPECT_THAT(list.Selected(), ElementsAre(13));
    EXPECT_EQ(list.Focus(), 13);
}

TEST_F(ListCtrlTest, ASortByKeysGivesTheOrderOfTheCompareFunction) {
    std::mt19937 random(11);
    list.DeleteAllItems();
    for (int row = 0; row < 500; ++row) Insert(row, static_cast<LPARAM>(random() % 1000));
    int asked = 0;
    RegisterSortKeys(ByLastDigit, [&asked](LPARAM argument) -> DataKeyMaker {
        if (argument != 1) return nullptr;
        return [&asked](LPARAM data, std::size_t part, std::string& key) {
            ++asked;
            if (part == 0) key += static_cast<char>('0' + data % 10);
        };
    });
    std::vector<DWORD> want = Data();
    std::stable_sort(want.begin(), want.end(),
                     [](DWORD left, DWORD right) { return left % 10 < right % 10; });

    list.SortItems(ByLastDigit, 1);
    EXPECT_EQ(Data(), want);
    EXPECT_GE(asked, 500);

    asked = 0;
    list.SortItems(ByLastDigit, -1);
    EXPECT_EQ(asked, 0) << "the source has no keys for this argument";
    EXPECT_EQ(list.GetItemData(0) % 10, 9U);
    RegisterSortKeys(ByLastDigit, nullptr);
}

TEST_F(ListCtrlTest, TheHeadingIsAWindowOverTheListsColumns) {
    const int order[] = {1, 0};
    EXPECT_TRUE(list.SetColumnOrderArray(2, order));

    system.Click(*list.GetHeaderCtrl(), {10, 10});
    EXPECT_EQ(list.clickedHeading, 1);
}

TEST_F(ListCtrlTest, AnImageListThatIsGoneIsNoLongerDrawn) {
    {
        CImageList images;
        images.Create(16, 16, ILC_COLOR24 | ILC_MASK, 1, 1);
        EXPECT_EQ(images.Add(CBitmap({32, 16}, RGB(1, 2, 3)), RGB(255, 0, 255)), 0);
        list.SetImageList(&images, LVSIL_SMALL);
    }
    EXPECT_EQ(list.GetImageList(LVSIL_SMALL), nullptr);
    list.RedrawWindow();
    for (const auto& each : Peer().Drawn()) EXPECT_NE(each.kind, DrawOperation::Kind::Bitmap);
}

std::vector<std::string> Texts(const Recording& recording) {
    std::vector<std::string> texts;
    for (const DrawOperation& operation : recording) {
        if (operation.kind == DrawOperation::Kind::Text) texts.push_back(operation.text.Bytes());
    }
    return texts;
}

TEST_F(ListCtrlTest, RowsInViewArePaintedByTheirOwner) {
    list.ModifyStyle(0, LVS_OWNERDRAWFIXED);
    list.SetItemState(19, LVIS_SELECTED, LVIS_SELECTED);
    list.EnsureVisible(19, 0);

    list.RedrawWindow();

    EXPECT_THAT(Texts(Peer().Drawn()),
                ElementsAre("row 14", "row 15", "row 16", "row 17", "row 18", "row 19 selected"));
    EXPECT_TRUE(Peer().InvalidArea().IsRectEmpty());
}

TEST_F(ListCtrlTest, PartsOfShownTextsAreMarked) {
    Peer().SetTextMarks([](std::string_view text) {
        const std::size_t place = text.find("1002");
        if (place == std::string_view::npos) return std::vector<TextMark>();
        return std::vector<TextMark>{{place, place + 4}};
    });
    list.RedrawWindow();
    int marked = 0;
    for (const DrawOperation& operation : Peer().Drawn()) {
        marked += static_cast<int>(operation.marks.size());
        if (!operation.marks.empty()) EXPECT_EQ(operation.marks[0], (TextMark{6, 10}));
    }
    EXPECT_EQ(marked, 1);
}

TEST_F(ListCtrlTest, NothingIsPaintedWhileDrawingIsOffAndAllOfItAfterwards) {
    list.UpdateWindow();
    Peer().ForgetDrawn();

    list.SetRedraw(0);
    list.Update(2);
    list.UpdateWindow();
    EXPECT_THAT(Peer().Drawn(), IsEmpty());
    list.SetRedraw(1);
    list.UpdateWindow();

    EXPECT_THAT(Texts(Peer().Drawn()), testing::Contains("asked 1002"));
    EXPECT_TRUE(list.Update(2)) << "one row";
    EXPECT_EQ(Peer().InvalidArea(), (CRect{0, 56, 400, 74}));
    EXPECT_FALSE(list.Update(20));
}

}  // namespace

}  // namespace orvo
