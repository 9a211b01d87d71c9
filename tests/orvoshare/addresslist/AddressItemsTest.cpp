// The rows of an address list: their places, and who frees their records.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <random>

#include <orvoshare/addresslist/AddressListWindow.h>

namespace orvo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AddressItems : public AddressListTest {
protected:
    int Insert(std::string_view name, int row, bool isSorted) {
        return view.DV_InsertRecord(row, store.Make({{AddressField::Name, name}}).release(),
                                    isSorted);
    }
    int InsertSorted(std::string_view name) { return Insert(name, 77, true); }
    CPoint Icon(int row) {
        CPoint place;
        EXPECT_TRUE(view.GetItemPosition(row, &place)) << row;
        return place;
    }
};

TEST_F(AddressItems, SortedInsertionGivesTheOrderOfTheWholeSort) {
    std::mt19937 random(7);
    for (const int mode : {kReportView, kLargeIconView, kSmallIconView}) {
        for (const int listBy : {1, 0}) {
            view.DV_DeleteAll();
            view.SetViewMode(mode);
            view.DV_SetListBy(listBy);
            for (int number = 0; number < 60; ++number) {
                std::string name(3, 'a');
                std::string company(2, 'a');
                for (char& letter : name) letter = static_cast<char>('a' + random() % 4);
                for (char& letter : company) letter = static_cast<char>('a' + random() % 3);
                CAddressRecord* record =
                    store.Make({{AddressField::Name, name}, {AddressField::Company, company}})
                        .release();
                const int row = view.DV_InsertRecord(0, record, 1);
                EXPECT_EQ(Record(row), record);
            }
            std::vector<DWORD> inserted;
            inserted.reserve(60);
            for (int row = 0; row < 60; ++row) inserted.push_back(view.DV_GetItemData(row));

            view.DV_Resort();

            for (int row = 0; row < 60; ++row) {
                EXPECT_EQ(AddrCompareFunc(static_cast<long>(inserted[static_cast<size_t>(row)]),
                                          static_cast<long>(view.DV_GetItemData(row)), listBy),
                          0)
                    << mode << ' ' << listBy << ' ' << row;
            }
        }
    }
}

TEST_F(AddressItems, ANewIconStandsToTheLowerRightOfTheOneBeforeIt) {
    for (const int mode : {kLargeIconView, kSmallIconView}) {
        view.DV_DeleteAll();
        view.SetViewMode(mode);
        InsertSorted("Adams");
        InsertSorted("Carter");
        view.SetItemPosition(0, {200, 100});

        const int row = InsertSorted("Baker");

        EXPECT_EQ(row, 1);
        EXPECT_EQ(Icon(row), (CPoint{201, 101}));
    }
}

TEST_F(AddressItems, AnIconThatComesFirstIsPlacedByTheControl) {
    view.SetViewMode(kLargeIconView);
    InsertSorted("Baker");
    const CPoint first = Icon(0);
    view.SetItemPosition(0, {200, 100});

    EXPECT_EQ(InsertSorted("Adams"), 0);

    EXPECT_EQ(Icon(0), first);
}

TEST_F(AddressItems, InReportModeAnInsertionPlacesNoIcon) {
    view.SetViewMode(kLargeIconView);
    InsertSorted("Adams");
    Insert("Carter", 1, false);
    const CPoint second = Icon(1);
    view.SetItemPosition(0, {200, 100});
    view.SetViewMode(kReportView);

    InsertSorted("Baker");

    view.SetViewMode(kLargeIconView);
    EXPECT_EQ(Icon(0), (CPoint{200, 100}));
    EXPECT_EQ(Icon(1), second);
}

TEST_F(AddressItems, ANullRecordIsRefusedWhateverElseIsGiven) {
    Insert("Adams", 0, false);
    for (const int isSorted : {0, 1}) EXPECT_EQ(view.DV_InsertRecord(0, nullptr, isSorted), -1);
    EXPECT_THAT(Names(), ElementsAre("Adams"));
}

TEST_F(AddressItems, ADeletedItemsRecordIsTheCallers) {
    Store({"Adams", "Baker"});
    Fill();
    const std::unique_ptr<CAddressRecord> record(Record(0));

    EXPECT_NE(view.DV_DeleteItem(0), 0);

    EXPECT_EQ(record->Utf8(AddressField::Name), "Adams");
    EXPECT_THAT(Names(), ElementsAre("Baker"));
    EXPECT_EQ(view.DV_DeleteItem(7), 0);
}

TEST_F(AddressItems, ADeletedItemRepaintsTheWholeReport) {
    Store({"Adams", "Baker"});
    Fill();
    view.UpdateWindow();
    ASSERT_TRUE(Peer().InvalidArea().IsRectEmpty());

    const std::unique_ptr<CAddressRecord> record(Record(1));
    view.DV_DeleteItem(1);

    CRect client;
    view.GetClientRect(&client);
    EXPECT_EQ(Peer().InvalidArea(), client);
}

TEST_F(AddressItems, TheListingOrderIsShownByTheSortColumn) {
    view.DV_SetListBy(0);
    EXPECT_EQ(view.GetSortColumn(), AddressColumn::Company);
    view.DV_SetListBy(5);
    EXPECT_EQ(view.GetSortColumn(), AddressColumn::Name);
    view.DV_SetSortOrder(AddressColumn::Title, 1);

    view.DV_SetListBy(5);

    EXPECT_EQ(view.GetSortColumn(), AddressColumn::Title) << "an equal value changes nothing";
}

TEST_F(AddressItems, AWalkGivesTheSelectedRowsAndEndsInNull) {
    Store({"Adams", "Baker", "Carter", "Dean"});
    Fill();
    view.DV_SelectAllItems(0);
    EXPECT_THAT(Selected(), IsEmpty());

    view.DV_SelectItem(0, 1);
    view.DV_SelectItem(3, 1);

    EXPECT_THAT(Selected(), ElementsAre(0, 3));
    EXPECT_EQ(view.DV_GetSelectedCount(), 2U);
}

TEST_F(AddressItems, OnlyAPrivateRecordIsPrivate) {
    Store({"Adams"});
    Store({"Baker"}, kNoCategory, true);
    Fill();

    EXPECT_EQ(view.IsRecordPrivate(view.DV_GetItemData(0)), 0);
    EXPECT_NE(view.IsRecordPrivate(view.DV_GetItemData(1)), 0);
    EXPECT_EQ(view.IsRecordPrivate(0), 0);
    EXPECT_EQ(view.IsRecordPrivate(~0UL), 0);
}

// The leak sanitizer tells of records that nobody frees, and of those freed twice at once.
TEST_F(AddressItems, EveryWayOutFreesEachRecordOnce) {
    const std::function<void(CDetailViewAddrList&)> ways[] = {
        [](CDetailViewAddrList&) {},  // the view is deleted with its window
        [](CDetailViewAddrList& list) { list.DestroyWindow(); },
        [](CDetailViewAddrList& list) { list.GetParent()->DestroyWindow(); },
        [](CDetailViewAddrList& list) { list.DV_DeleteAll(); },
        [&](CDetailViewAddrList& list) { list.DV_FillFromTable(&table, 1, 0, 1); },
        [&](CDetailViewAddrList& list) { list.DV_FillFromTable(nullptr, 1, 0, 1); },
        [](CDetailViewAddrList& list) {
            const std::unique_ptr<CAddressRecord> record(RecordOf(list.DV_GetItemData(1)));
            list.DV_DeleteItem(1);
        },
        [](CDetailViewAddrList& list) { EXPECT_EQ(list.DV_ReSort(1, 1, 0), -1); },
        [](CDetailViewAddrList& list) {
            list.SendMessage(WM_DESTROY);
            list.DV_DeleteAll();
        },
        [this](CDetailViewAddrList& list) {
            list.DestroyWindow();
            EXPECT_EQ(list.DV_InsertRecord(0, store.Make({}).release(), 1), -1);
        },
    };
    Store({"Adams", "Baker", "Carter"});
    for (const auto& goOut : ways) {
        CWnd parent;
        parent.Create(WS_POPUP, {0, 0, 400, 300}, nullptr, 0);
        auto list = std::make_unique<CDetailViewAddrList>();
        list->Create(LVS_REPORT, {0, 0, 400, 300}, &parent, 1);
        list->Initialize(&table, nullptr);
        list->DV_FillFromTable(&table, kAllCategories, 0, 1);
        ASSERT_EQ(list->DV_GetItemCount(), 3);

        goOut(*list);
        list.reset();
    }
}

TEST_F(AddressItems, RowsWhoseRecordsAreFreedHoldNothingToPaintOrTell) {
    Store({"Adams", "Baker"});
    Fill();
    for (const int mode : {kReportView, kLargeIconView}) {
        view.SetViewMode(mode);

        view.SendMessage(WM_DESTROY);

        EXPECT_THAT(Names(), ElementsAre("none", "none"));
        view.Invalidate();
        view.UpdateWindow();
        view.DV_SetMaskPrivate(1);
        view.RedrawWindow();
        EXPECT_EQ(view.GetInfoTip(0), "");
        EXPECT_EQ(view.DV_Lookup("Ad"), -1);
    }
}

}  // namespace

}  // namespace orvo
