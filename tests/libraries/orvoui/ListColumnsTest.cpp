// Columns of the list widget: shown, hidden, dragged, unknown.
// SPDX-License-Identifier: MIT
#include <libraries/orvoui/ListFixture.h>

namespace orvo {

namespace {

using testing::ElementsAre;

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
    EXPECT_THAT(Heading(), testing::IsEmpty()) << "hidden at first";

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

}  // namespace

}  // namespace orvo
