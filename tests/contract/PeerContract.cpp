// What the list and edit peers of every window system must do.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <contract/PeerSystem.h>
#include <support/LocaleInForce.h>

namespace orvo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A list of ten rows with the data words 100 to 109, and three columns.
class ListPeerContract : public testing::Test {
protected:
    struct Client : ListPeerClient {
        CString CellText(int, int) override { return {}; }
        int RowImage(int) override { return -1; }
        CString InfoTip(int) override { return {}; }
        void DrawRow(CDC&, int, const CRect&) override {}
        void StateChanged(int row, UINT, UINT newState) override {
            changes.emplace_back(row, newState);
        }
        void HeadingClicked(int) override {}

        std::vector<std::pair<int, UINT>> changes;
    };

    void SetUp() override {
        list = system->MakeListPeer({nullptr, {0, 0, 400, 200}, LVS_REPORT});
        list->SetClient(&client);
        for (const int width : {80, 60, 40}) {
            ListColumn column;
            column.width = width;
            list->InsertColumn(list->ColumnCount(), column);
        }
        Append(100, 110);
    }

    int Insert(int row, DWORD data) { return list->InsertRow(row, {data, {}, -1, false, false}); }
    void Append(DWORD first, DWORD end) {
        for (DWORD data = first; data < end; ++data) Insert(list->RowCount(), data);
    }
    CRect Cell(int row, int column) const {
        CRect cell;
        EXPECT_TRUE(list->CellRect(row, column, cell)) << row << ' ' << column;
        return cell;
    }

    std::vector<DWORD> SelectedData() const {
        std::vector<DWORD> data;
        for (int row = list->NextSelected(-1); row != -1; row = list->NextSelected(row)) {
            data.push_back(list->Data(row));
        }
        EXPECT_EQ(list->SelectedCount(), static_cast<int>(data.size()));
        return data;
    }

    const std::unique_ptr<WindowSystem> system = MakeWindowSystem();
    Client client;
    std::unique_ptr<ListPeer> list;
};

TEST_F(ListPeerContract, ARowInsertedBeyondTheEndStandsAtTheEndAndOneThatIsNotThereIsHarmless) {
    EXPECT_EQ(Insert(99, 7), 10);
    EXPECT_EQ(Insert(-1, 8), -1);
    EXPECT_EQ(list->RowCount(), 11);
    EXPECT_EQ(list->FindData(7, -1), 10);
    EXPECT_EQ(list->FindData(7, 10), -1);

    EXPECT_FALSE(list->DeleteRow(11));
    EXPECT_EQ(list->Data(11), 0U);
    EXPECT_FALSE(list->SetFocusRow(11));
    list->Select(11, 20, true);
    EXPECT_EQ(list->SelectedCount(), 0);
    CRect rect;
    EXPECT_FALSE(list->RowRect(11, RowPart::Bounds, rect));
}

TEST_F(ListPeerContract, SelectionFocusAndAnchorStayWithTheirRows) {
    list->Select(3, 3, true);
    list->Select(5, 6, true);
    list->SetFocusRow(5);
    list->SetAnchor(6);

    Insert(5, 99);
    list->DeleteRow(4);  // 104, between them

    EXPECT_THAT(SelectedData(), ElementsAre(103, 105, 106));
    EXPECT_EQ(list->Data(list->FocusRow()), 105U);
    EXPECT_EQ(list->Data(list->Anchor()), 106U);
}

TEST_F(ListPeerContract, ADeletedRowTakesItsSelectionAlongAndLeavesTheFocusToTheNext) {
    list->Select(8, 9, true);
    list->SetFocusRow(8);

    list->DeleteRow(8);
    EXPECT_THAT(SelectedData(), ElementsAre(109));
    EXPECT_EQ(list->Data(list->FocusRow()), 109U);
    list->DeleteRow(8);

    EXPECT_THAT(SelectedData(), IsEmpty());
    EXPECT_EQ(list->Data(list->FocusRow()), 107U);

    list->Select(0, 7, true);
    list->DeleteAllRows();
    Insert(0, 1);
    EXPECT_THAT(SelectedData(), IsEmpty());
    EXPECT_EQ(list->FocusRow(), -1);
}

TEST_F(ListPeerContract, ANewOrderKeepsSelectionFocusAndAnchorWithTheirRows) {
    list->Select(0, 1, true);
    list->SetFocusRow(1);
    list->SetAnchor(0);

    list->Reorder({9, 8, 7, 6, 5, 4, 3, 2, 1, 0});

    EXPECT_EQ(list->Data(0), 109U);
    EXPECT_THAT(SelectedData(), ElementsAre(101, 100));
    EXPECT_EQ(list->FocusRow(), 8);
    EXPECT_EQ(list->Anchor(), 9);
}

TEST_F(ListPeerContract, AnExchangeKeepsWhatIsInViewAndSelectionAndFocusWithTheirRows) {
    Append(110, 200);
    list->Select(20, 21, true);
    list->SetFocusRow(21);
    list->EnsureVisible(60, false);
    const DWORD first = list->Data(list->TopRow());

    list->ExchangeRows({3, 4, 21}, {{0, -1, {7, {}}}, {0, 4}, {80, 21}, {100, -1, {8, {}}}});

    EXPECT_EQ(list->RowCount(), 101);
    const DWORD begin[] = {7, 104, 100, 101, 102, 105};
    for (int row = 0; row < 6; ++row) EXPECT_EQ(list->Data(row), begin[row]) << row;
    EXPECT_EQ(list->FindData(121, -1), list->FindData(180, -1) - 1);
    EXPECT_EQ(list->Data(100), 8U);
    EXPECT_THAT(SelectedData(), ElementsAre(120, 121));
    EXPECT_EQ(list->Data(list->FocusRow()), 121U);
    EXPECT_EQ(list->Data(list->TopRow()), first);

    list->ExchangeRows({0, 1, list->FocusRow()}, {});
    EXPECT_EQ(list->RowCount(), 98);
    EXPECT_EQ(list->Data(list->FocusRow()), 180U);
    EXPECT_EQ(list->Data(list->TopRow()), first);
}

TEST_F(ListPeerContract, WhatChangesWhileDrawingIsOffIsThereAtOnceAndAfterwards) {
    Append(110, 200);
    list->EnsureVisible(60, false);
    const int top = list->TopRow();

    list->SetRedraw(false);
    list->DeleteRow(99);
    Insert(99, 7);
    list->SetFocusRow(99);
    EXPECT_EQ(list->RowCount(), 100);
    EXPECT_EQ(list->TopRow(), top);
    list->SetRedraw(true);

    EXPECT_EQ(list->Data(list->FocusRow()), 7U);
    EXPECT_EQ(list->TopRow(), top);
    list->SetRedraw(false);
    list->DeleteAllRows();
    Append(0, 300);
    list->EnsureVisible(299, false);
    list->SetRedraw(true);
    EXPECT_EQ(list->TopRow(), 300 - list->RowsPerPage());
}

TEST_F(ListPeerContract, OnlyChangesAreToldAndSeveralRowsOnce) {
    using Change = std::pair<int, UINT>;
    list->Select(2, 2, true);
    list->Select(2, 2, true);
    list->Select(2, 3, true);
    list->Select(0, 9, false);

    EXPECT_THAT(client.changes,
                ElementsAre(Change(2, LVIS_SELECTED), Change(3, LVIS_SELECTED), Change(-1, 0)));
}

TEST_F(ListPeerContract, TheMiddleOfACellHitsItAlsoAfterColumnsWereMoved) {
    ASSERT_TRUE(list->SetColumnOrder({2, 0, 1}));

    for (int column = 0; column < 3; ++column) {
        const ListHit hit = list->HitTest(Cell(4, column).CenterPoint());
        EXPECT_EQ(hit.row, 4);
        EXPECT_EQ(hit.column, column);
        EXPECT_EQ(hit.flags, LVHT_ONITEMLABEL);
    }
    EXPECT_LT(Cell(0, 2).left, Cell(0, 1).left);
}

TEST_F(ListPeerContract, AnOrderThatIsNoneIsRefusedAndADeletedColumnLeavesTheOthersInTheirs) {
    EXPECT_FALSE(list->SetColumnOrder({0, 0, 1}));
    EXPECT_FALSE(list->SetColumnOrder({0, 1}));
    EXPECT_FALSE(list->SetColumnOrder({0, 1, 3}));
    EXPECT_THAT(list->ColumnOrder(), ElementsAre(0, 1, 2));
    list->SetColumnOrder({2, 1, 0});

    list->DeleteColumn(1);

    EXPECT_THAT(list->ColumnOrder(), ElementsAre(1, 0));
    EXPECT_EQ(list->Column(1).width, 40);
}

TEST_F(ListPeerContract, APointOffAllRowsHitsNone) {
    EXPECT_EQ(list->HitTest({399, 199}).row, -1);
    EXPECT_EQ(list->HitTest({5, 500}).flags & LVHT_BELOW, LVHT_BELOW);
    EXPECT_EQ(list->HitTest({-1, 50}).flags & LVHT_TOLEFT, LVHT_TOLEFT);
}

TEST_F(ListPeerContract, ARowBroughtIntoViewIsHitWhereItStands) {
    Append(110, 200);

    for (const int row : {99, 0, 50, 45}) {
        ASSERT_TRUE(list->EnsureVisible(row, false));
        EXPECT_EQ(list->HitTest(Cell(row, 1).CenterPoint()).row, row);
        EXPECT_GE(row, list->TopRow());
        EXPECT_LT(row, list->TopRow() + list->RowsPerPage());
        EXPECT_THAT(list->VisibleRows(), testing::Contains(row));
    }
}

TEST_F(ListPeerContract, AnIconIsHitWhereItWasPut) {
    list->SetMode(ListMode::Icon);
    ASSERT_TRUE(list->SetIconPosition(3, {230, 155}));

    CPoint position;
    ASSERT_TRUE(list->IconPosition(3, position));
    EXPECT_EQ(position, (CPoint{230, 155}));
    const ListHit hit = list->HitTest({235, 160});
    EXPECT_EQ(hit.row, 3);
    EXPECT_EQ(hit.flags, LVHT_ONITEMICON);
}

TEST_F(ListPeerContract, AMillionRowsCanBeSelectedByRanges) {
    constexpr int kRows = 1000000;
    list->ReserveRows(kRows);
    while (list->RowCount() < kRows) Insert(list->RowCount(), 1);

    list->Select(0, kRows - 1, true);
    list->Select(10, kRows - 11, false);

    EXPECT_EQ(list->SelectedCount(), 20);
    EXPECT_EQ(list->NextSelected(9), kRows - 10);
}

// One line of text; `kText` holds characters of one to three bytes.
class EditPeerContract : public testing::Test {
protected:
    static constexpr const char* kText = "a\xC3\xA9\xE6\x9D\xB1z";

    void SetUp() override { edit = system->MakeEditPeer({nullptr, {0, 0, 200, 20}, 0}); }

    LocaleInForce locale{"en-US"};

    const std::unique_ptr<WindowSystem> system = MakeWindowSystem();
    std::unique_ptr<EditPeer> edit;
};

TEST_F(EditPeerContract, ASelectionSplitsNoCharacterAndANewTextPutsTheCaretAtTheStart) {
    edit->SetText(kText);
    edit->Select({5, 2});
    EXPECT_EQ(edit->Selection(), (EditSelection{3, 1}));
    edit->Select({-3, 99});
    EXPECT_EQ(edit->Selection(), (EditSelection{0, 7}));
    edit->SetText("b");
    EXPECT_EQ(edit->Selection(), EditSelection());
}

TEST_F(EditPeerContract, WhatReplacesTheSelectionStandsBeforeTheCaret) {
    edit->SetText(kText);
    edit->Select({6, 1});

    edit->ReplaceSelection("\xC3\xBC");

    EXPECT_EQ(edit->Text(), CString("a\xC3\xBCz"));
    EXPECT_EQ(edit->Selection(), (EditSelection{3, 3}));
}

}  // namespace

}  // namespace orvo
