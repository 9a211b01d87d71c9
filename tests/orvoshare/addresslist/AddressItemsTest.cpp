// The rows of an address list: their places, and who frees their records.
// SPDX-License-Identifier: MIT
#include <orvoshare/addresslist/AddressListFixture.h>

namespace orvo {
namespace {

class AddressItems : public AddressListFixture {
protected:
    int InsertSorted(std::string_view name) {
        return view->DV_InsertRecord(77, MakeNamed(name).release(), 1);
    }
    CPoint Icon(int row) {
        CPoint place;
        EXPECT_TRUE(view->GetItemPosition(row, &place)) << row;
        return place;
    }
};

TEST_F(AddressItems, ANewIconStandsToTheLowerRightOfTheOneBeforeItIfAny) {
    for (const int mode : {kLargeIconView, kSmallIconView}) {
        view->DV_DeleteAll();
        view->SetViewMode(mode);
        InsertSorted("Adams");
        InsertSorted("Carter");
        const CPoint first = Icon(0);
        view->SetItemPosition(0, {200, 100});

        EXPECT_EQ(InsertSorted("Baker"), 1);
        EXPECT_EQ(InsertSorted("Aaron"), 0);

        EXPECT_EQ(Icon(2), (CPoint{201, 101}));
        EXPECT_EQ(Icon(0), first) << "placed by the control";
    }
}

TEST_F(AddressItems, InReportModeAnInsertionPlacesNoIcon) {
    view->SetViewMode(kLargeIconView);
    InsertSorted("Adams");
    view->DV_InsertRecord(1, MakeNamed("Carter").release(), 0);
    const CPoint second = Icon(1);
    view->SetItemPosition(0, {200, 100});
    view->SetViewMode(kReportView);

    InsertSorted("Baker");

    view->SetViewMode(kLargeIconView);
    EXPECT_EQ(Icon(0), (CPoint{200, 100}));
    EXPECT_EQ(Icon(1), second);
}

TEST_F(AddressItems, ADeletedItemRepaintsTheWholeReport) {
    Store({"Adams", "Baker"});
    Fill();
    view->UpdateWindow();

    const std::unique_ptr<CAddressRecord> record(RecordAt(1));
    view->DV_DeleteItem(1);

    CRect client;
    view->GetClientRect(&client);
    EXPECT_EQ(Peer().InvalidArea(), client);
}

TEST_F(AddressItems, TheListingOrderIsShownByTheSortColumn) {
    view->DV_SetListBy(kListByCompany);
    EXPECT_EQ(view->GetSortColumn(), AddressColumn::Company);
    view->DV_SetListBy(5);
    EXPECT_EQ(view->GetSortColumn(), AddressColumn::Name);
    view->DV_SetSortOrder(AddressColumn::Title, 1);

    view->DV_SetListBy(5);

    EXPECT_EQ(view->GetSortColumn(), AddressColumn::Title) << "an equal value changes nothing";
}

// The leak sanitizer tells of records that nobody frees, and of those freed twice at once.
TEST_F(AddressItems, EveryWayOutFreesEachRecordOnce) {
    const std::function<void()> ways[] = {
        [] {},  // the view is deleted with its window
        [this] { view->DestroyWindow(); },
        [this] { owner.DestroyWindow(); },
        [this] { Fill(kPersonal); },
        [this] { view->DV_FillFromTable(nullptr, 1, 0, 1); },
        [this] {
            const std::unique_ptr<CAddressRecord> record(RecordAt(1));
            view->DV_DeleteItem(1);
        },
        [this] { TakeOut(1); },
        [this] {
            view->SendMessage(WM_DESTROY);
            Empty();
        },
        [this] {
            view->DestroyWindow();
            EXPECT_EQ(InsertSorted("Dean"), -1);
        },
    };
    Store({"Adams", "Baker", "Carter"});
    for (const auto& goOut : ways) {
        if (!owner.GetSafeHwnd()) owner.Create(WS_POPUP, {10, 20, 710, 420}, nullptr, 0);
        view = NewView();
        Fill();
        ASSERT_EQ(view->DV_GetItemCount(), 3);
        goOut();
    }
}

TEST_F(AddressItems, RowsWhoseRecordsAreFreedHoldNothingToPaintOrTell) {
    Store({"Adams", "Baker"});
    Fill();
    for (const int mode : {kReportView, kLargeIconView}) {
        view->SetViewMode(mode);

        view->SendMessage(WM_DESTROY);

        EXPECT_EQ(Names(), "none none");
        view->Invalidate();
        view->UpdateWindow();
        view->DV_SetMaskPrivate(1);
        view->RedrawWindow();
        EXPECT_EQ(view->GetInfoTip(0), "");
        EXPECT_EQ(view->DV_Lookup("Ad"), -1);
    }
}

}  // namespace
}  // namespace orvo
