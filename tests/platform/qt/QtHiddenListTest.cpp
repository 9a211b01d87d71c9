// A list that hasn't been shown yet knows where its rows will stand.
// SPDX-License-Identifier: MIT
#include <platform/qt/QtFixture.h>
#include <platform/window/CListCtrl.h>

namespace orvo {

namespace {

TEST(QtHiddenList, HasAsManyCardsInALineAsItsHeightHolds) {
    const QtSystemInForce system;
    CWnd parent;
    parent.Create(WS_POPUP, {0, 0, 500, 400}, nullptr, 0);
    CListCtrl list;
    list.Create(LVS_REPORT, {0, 0, 500, 330}, &parent, 1);
    auto& peer = dynamic_cast<ListPeer&>(*list.GetPeer());
    peer.SetCardSize({100, 100 - kCardGutter});
    peer.SetMode(ListMode::Card);
    for (int row = 0; row < 8; ++row) list.InsertItem(row, "x");

    EXPECT_EQ(peer.RowsPerLine(), 3);
    list.MoveWindow({0, 0, 500, 430});
    EXPECT_EQ(peer.RowsPerLine(), 4);
}

TEST(QtHiddenList, KnowsItsPlacesBeforeItIsShown) {
    const QtSystemInForce system;
    CWnd parent;
    parent.Create(WS_POPUP, {0, 0, 400, 300}, nullptr, 0);
    CListCtrl list;
    list.Create(LVS_REPORT, {0, 0, 400, 200}, &parent, 1);
    list.InsertColumn(0, "Name", LVCFMT_LEFT, 100);
    for (int row = 0; row < 1000; ++row) list.InsertItem(row, "x");

    list.EnsureVisible(999, 0);

    EXPECT_GT(list.GetCountPerPage(), 4);
    EXPECT_EQ(list.GetTopIndex(), 1000 - list.GetCountPerPage());
}

}  // namespace

}  // namespace orvo
