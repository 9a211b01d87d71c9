// A list on the screen: the user's keys, clicks and columns, and what is painted.
// SPDX-License-Identifier: MIT
#include <QHeaderView>
#include <QHelpEvent>
#include <QListView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>
#include <QTreeView>

#include <platform/qt/QtFixture.h>
#include <platform/qt/QtListPeer.h>
#include <platform/window/NotingList.h>

namespace orvo {

namespace {

struct QtListTest : QtWindowFixture {
    void SetUp() override {
        QtWindowFixture::SetUp();
        list.Create(LVS_REPORT, {0, 0, 400, 200}, &parent, 1);
        list.InsertColumn(0, "Name", LVCFMT_LEFT, 100);
        list.InsertColumn(1, "City", LVCFMT_RIGHT, 80);
        list.InsertColumn(2, "Note", LVCFMT_LEFT, 60);
        for (int row = 0; row < 50; ++row) list.InsertItem(row, std::to_string(row).c_str());
        list.SetFocus();
    }

    QTreeView& Report() const { return *Widget(list).findChild<QTreeView*>(); }
    QHeaderView& Header() const { return *Report().header(); }
    QPoint InHeading(int x) const { return {x, Header().viewport()->height() / 2}; }
    void ClickHeading(int x) const {
        QTest::mouseClick(Header().viewport(), Qt::LeftButton, {}, InHeading(x));
    }
    void DragHeading(int from, int by) const {
        QWidget* heading = Header().viewport();
        QTest::mousePress(heading, Qt::LeftButton, {}, InHeading(from));
        QTest::mouseMove(heading, InHeading(from + by / 2));
        QTest::mouseMove(heading, InHeading(from + by));
        QTest::mouseRelease(heading, Qt::LeftButton, {}, InHeading(from + by));
    }
    QtListPeer& Peer() const { return dynamic_cast<QtListPeer&>(*list.GetPeer()); }
    // The tip that comes where the pointer rests.
    QString TipAt(CPoint point) const {
        QWidget& seen = *Widget(list).childAt(ToQt(point));
        const QPoint place = seen.mapFrom(&Widget(list), ToQt(point));
        QHelpEvent help(QEvent::ToolTip, place, seen.mapToGlobal(place));
        QCoreApplication::sendEvent(&seen, &help);
        const QString tip = QToolTip::text();
        QToolTip::hideText();
        return tip;
    }

    NotingList list;
};

TEST_F(QtListTest, AClickSelectsTheRowThatIsSeenThereAlsoWhenScrolled) {
    Click(list, list.Cell(2));
    Click(list, list.Cell(4, 1), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_THAT(list.Selected(), ElementsAre(2, 4));

    list.EnsureVisible(49, 0);
    Click(list, list.Cell(48), Qt::RightButton);

    EXPECT_THAT(list.Selected(), ElementsAre(48));
    EXPECT_THAT(list.ClickCodes(), ElementsAre(NM_CLICK, NM_CLICK, NM_RCLICK));

    QTest::mouseDClick(Report().viewport(), Qt::LeftButton, {},
                       Report().viewport()->mapFrom(&Widget(list), ToQt(list.Cell(48))));
    EXPECT_THAT(list.ClickCodes(), testing::Contains(NM_DBLCLK));
}

TEST_F(QtListTest, AClickMayDestroyTheList) {
    list.goesOnClick = true;

    Click(list, list.Cell(1));

    EXPECT_EQ(list.GetSafeHwnd(), nullptr);
    EXPECT_EQ(list.clicks.size(), 1U);
}

TEST_F(QtListTest, ColumnsThatTheUserMovesAndWidensAreTheLists) {
    Header().moveSection(2, 0);
    Header().resizeSection(1, 123);

    std::vector<int> order(3);
    list.GetColumnOrderArray(order.data());
    EXPECT_THAT(order, ElementsAre(2, 0, 1));
    EXPECT_EQ(list.GetColumnWidth(1), 123);
    ClickHeading(20);
    EXPECT_EQ(list.clickedHeading, 2);
}

TEST_F(QtListTest, ColumnsComeAndGoInTheHeadingToo) {
    const int order[] = {2, 1, 0};
    list.SetColumnOrderArray(3, order);
    list.InsertColumn(1, "New", LVCFMT_LEFT, 33);
    list.DeleteColumn(2);  // City

    ASSERT_EQ(Header().count(), 3);
    QStringList shown;
    for (int place = 0; place < 3; ++place) {
        const int column = Header().logicalIndex(place);
        shown += Header().model()->headerData(column, Qt::Horizontal).toString();
        EXPECT_EQ(Header().sectionSize(column), list.GetColumnWidth(column)) << column;
    }
    EXPECT_EQ(shown, QStringList({"Note", "New", "Name"}));
}

TEST_F(QtListTest, PlacesFollowTheHeadingThatIsScrolledAside) {
    list.SetColumnWidth(0, 500);
    QCoreApplication::processEvents();
    const CPoint before = list.Cell(1, 1);

    Report().horizontalScrollBar()->setValue(40);

    EXPECT_EQ(list.Cell(1, 1), before - CPoint({40, 0}));
    CRect heading;
    list.GetHeaderCtrl()->SendMessage(HDM_GETITEMRECT, 1, LParamOf(&heading));
    EXPECT_EQ(heading.left, Header().sectionViewportPosition(1));
}

TEST_F(QtListTest, ARowIsPaintedWhereItsRectangleSays) {
    list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED);
    const CRect row = list.Part(3, LVIR_BOUNDS);
    const CRect below = list.Part(4, LVIR_BOUNDS);

    const QImage picture = Picture(list);

    const int all = row.Width() * row.Height();
    const int lit = PixelsOf(picture, row, GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_GT(lit, all * 8 / 10);
    EXPECT_LT(lit, all) << "its text is there, too";
    EXPECT_EQ(PixelsOf(picture, below, GetSysColor(COLOR_HIGHLIGHT)), 0);
    EXPECT_LT(PixelsOf(picture, below, GetSysColor(COLOR_WINDOW)), all) << "its text";
}

TEST_F(QtListTest, AMarkTintsTheGroundOfItsPartOfTheText) {
    const CRect row = list.Part(3, LVIR_BOUNDS);
    const int before = PixelsOf(Picture(list), row, GetSysColor(COLOR_WINDOW));
    const auto mark = [&](std::size_t end) {
        dynamic_cast<ListPeer&>(*list.GetPeer()).SetTextMarks([end](std::string_view text) {
            return std::vector<TextMark>{{0, std::min(end, text.size())}};
        });
        return before - PixelsOf(Picture(list), row, GetSysColor(COLOR_WINDOW));
    };
    EXPECT_GT(mark(1), row.Height());
    EXPECT_EQ(mark(0), 0);
}

TEST_F(QtListTest, APictureIsPaintedWithoutThePixelsOfItsMask) {
    constexpr COLORREF kRed = RGB(255, 0, 0);
    constexpr COLORREF kMask = RGB(255, 0, 255);
    CBitmap bitmap({16, 16}, kMask);
    for (int x = 0; x < 16; ++x) bitmap.SetPixel({x, 5}, kRed);
    CImageList images;
    images.Create(16, 16, ILC_COLOR24 | ILC_MASK, 1, 0);
    images.Add(bitmap, kMask);
    list.SetImageList(&images, LVSIL_SMALL);
    Peer().SetImage(2, 0);
    const CRect icon = list.Part(2, LVIR_ICON);

    const QImage picture = Picture(list);

    EXPECT_EQ(PixelsOf(picture, icon, kRed), 16);
    EXPECT_EQ(PixelsOf(picture, icon, kMask), 0);
}

TEST_F(QtListTest, InIconModesRowsStandInLinesAndGiveTips) {
    list.SetView(LVS_ICON);
    const CPoint icon = list.Part(1, LVIR_ICON).CenterPoint();
    Click(list, icon);
    EXPECT_THAT(list.Selected(), ElementsAre(1));
    Press(Qt::Key_Right);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_THAT(list.Selected(), ElementsAre(2, 3));
    EXPECT_GT(list.changes, 0);
    EXPECT_TRUE(TipAt(icon).contains("&lt;b&gt;tip"));
}

TEST_F(QtListTest, AnIconPlacedBelowAllOthersCanBeScrolledTo) {
    list.SetView(LVS_ICON);
    ASSERT_TRUE(list.SetItemPosition(0, {10, 5000}));

    list.EnsureVisible(0, 0);

    const CRect icon = list.Part(0, LVIR_ICON);
    EXPECT_EQ(list.HitTest(icon.CenterPoint()), 0);
    EXPECT_GE(icon.top, 0);
    EXPECT_LE(icon.bottom, 200);
}

TEST_F(QtListTest, CardsAreScrolledAsideByColumnsAndClickedWhereTheyAreSeen) {
    ListPeer& peer = Peer();
    peer.SetCardSize({100, 60});
    peer.SetMode(ListMode::Card);
    ASSERT_GT(peer.RowsPerLine(), 1);

    peer.EnsureVisible(49, false);
    const CRect card = list.Part(49, LVIR_BOUNDS);
    EXPECT_GT(peer.TopRow(), 0);
    EXPECT_LE(card.right, 400);
    Click(list, card.CenterPoint());
    EXPECT_THAT(list.Selected(), ElementsAre(49));

    Press(Qt::Key_Home);
    EXPECT_EQ(peer.TopRow(), 0);
    peer.SetMode(ListMode::Icon);
    peer.EnsureVisible(49, false);
    EXPECT_GT(peer.TopRow(), 0);
}

TEST_F(QtListTest, WhileDrawingIsOffNothingIsPainted) {
    list.SetRedraw(0);
    EXPECT_FALSE(Widget(list).updatesEnabled());
    for (int row = 0; row < 50; ++row) list.DeleteItem(0);
    list.SetRedraw(1);

    EXPECT_EQ(PixelsOf(Picture(list), {0, 60, 380, 180}, GetSysColor(COLOR_WINDOW)), 380 * 120);
}

TEST_F(QtListTest, QtHearsOfAllThatChangedWhileDrawingWasOffAsOneReset) {
    const QAbstractItemModel& model = *Report().model();
    const QSignalSpy inserts(&model, &QAbstractItemModel::rowsInserted);
    const QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);

    list.SetRedraw(0);
    list.DeleteAllItems();
    for (int row = 0; row < 100; ++row) list.InsertItem(row, "x");
    list.DeleteItem(0);
    list.SetItemState(50, LVIS_FOCUSED, LVIS_FOCUSED);
    EXPECT_EQ(resets.count(), 0);
    list.SetRedraw(1);

    EXPECT_EQ(inserts.count() + removals.count(), 0);
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(Report().currentIndex().row(), 50);
    EXPECT_EQ(Header().sectionSize(1), list.GetColumnWidth(1));
}

TEST_F(QtListTest, AssistiveTechnologyFindsIconsWhereTheyAreSeen) {
    list.SetView(LVS_ICON);
    auto& icons = *Widget(list).findChild<QListView*>();
    const QRect bounds = ToQt(list.Part(3, LVIR_BOUNDS));

    EXPECT_EQ(icons.visualRect(icons.model()->index(3, 0)), bounds);
    EXPECT_EQ(icons.indexAt(bounds.center()).row(), 3);
    icons.scrollTo(icons.model()->index(49, 0));
    EXPECT_GT(list.GetTopIndex(), 0);
}

TEST_F(QtListTest, TheHeadingMarksTheColumnByWhichTheRowsAreSortedWhereverItStands) {
    LVCOLUMN content;
    content.mask = LVCF_FMT;
    content.fmt = LVCFMT_RIGHT | HDF_SORTUP;
    list.SetColumn(1, content);
    EXPECT_EQ(Header().sortIndicatorSection(), 1);

    ClickHeading(20);
    EXPECT_EQ(list.clickedHeading, 0);
    EXPECT_EQ(Header().sortIndicatorSection(), 1) << "a click alone sorts nothing";

    list.InsertColumn(0, "New", LVCFMT_LEFT, 30);
    EXPECT_EQ(Header().sortIndicatorSection(), 2);
    EXPECT_EQ(Header().sortIndicatorOrder(), Qt::AscendingOrder);
}

TEST_F(QtListTest, AColumnsEdgeIsDraggedAndOneThatIsDraggedShutOpensAgainWhereverItStands) {
    DragHeading(99, 30);
    QTest::mouseDClick(Header().viewport(), Qt::LeftButton, {}, InHeading(129));
    EXPECT_EQ(list.GetColumnWidth(0), 130) << "its cells aren't Qt's to measure";
    EXPECT_EQ(list.clickedHeading, -1);
    for (const int column : {1, 2}) {
        const int start = Header().sectionViewportPosition(column);
        const int width = list.GetColumnWidth(column);
        DragHeading(start + width - 1, -width - 20);
        EXPECT_EQ(list.GetColumnWidth(column), 0) << column;
        DragHeading(start + 1, 30);
        EXPECT_EQ(list.GetColumnWidth(column), 30) << column;
    }
}

// The first place of a line at which something dark is drawn.
int FirstInk(const QImage& picture, int top, int bottom) {
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = top; y < bottom; ++y) {
            if (picture.pixelColor(x, y).lightness() < 100) return x;
        }
    }
    return -1;
}

TEST_F(QtListTest, AHeadingBeginsWhereTheTextsBelowItDo) {
    list.SetItemText(2, 0, "Name");
    const CRect row = list.Part(2, LVIR_BOUNDS);

    const QImage picture = Picture(list);

    const int cell = FirstInk(picture, row.top, row.bottom);
    EXPECT_GE(cell, 4);
    EXPECT_EQ(FirstInk(picture, 2, Header().height() - 3), cell);
}

TEST_F(QtListTest, ATextThatIsCutIsTheTipOfItsCell) {
    const char* text = "A <b>text</b> that is far too long for its column";
    list.SetItemText(1, 0, text);
    list.SetItemText(1, 2, "short");
    EXPECT_EQ(Peer().CutText(list.Cell(1, 0)), CString(text));
    for (const CPoint whole : {list.Cell(1, 2), list.Cell(2, 0), CPoint{399, 199}}) {
        EXPECT_EQ(Peer().CutText(whole), CString());
    }
    EXPECT_TRUE(TipAt(list.Cell(1, 0)).contains("A &lt;b&gt;text"));
}

TEST(QtHiddenList, HasAsManyCardsInALineAsItsHeightHolds) {
    const QtSystemInForce system;
    CWnd parent;
    CListCtrl list;
    parent.Create(WS_POPUP, {0, 0, 500, 400}, nullptr, 0);
    list.Create(LVS_REPORT, {0, 0, 500, 330}, &parent, 1);
    auto& peer = dynamic_cast<ListPeer&>(*list.GetPeer());
    peer.SetCardSize({100, 100 - kCardGutter});
    peer.SetMode(ListMode::Card);
    for (int row = 0; row < 8; ++row) list.InsertItem(row, "x");

    EXPECT_EQ(peer.RowsPerLine(), 3);
    list.MoveWindow({0, 0, 500, 430});
    EXPECT_EQ(peer.RowsPerLine(), 4);
}

}  // namespace

}  // namespace orvo
