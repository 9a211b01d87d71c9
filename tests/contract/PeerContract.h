// What every window system's list and edit peers must do; a suite for each, over the system.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <platform/window/WindowSystem.h>
#include <support/LocaleInForce.h>

namespace orvo {

// A list of ten rows with the data words 100 to 109, and three columns.
template <class System>
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
        list = system.MakeListPeer({nullptr, {0, 0, 400, 200}, LVS_REPORT});
        list->SetClient(&client);
        for (const int width : {80, 60, 40}) {
            ListColumn column;
            column.width = width;
            list->InsertColumn(list->ColumnCount(), column);
        }
        for (DWORD data = 100; data < 110; ++data) Insert(list->RowCount(), data);
    }

    int Insert(int row, DWORD data) {
        ListRow content;
        content.data = data;
        return list->InsertRow(row, content);
    }

    std::vector<DWORD> SelectedData() const {
        std::vector<DWORD> data;
        for (int row = list->NextSelected(-1); row != -1; row = list->NextSelected(row)) {
            data.push_back(list->Data(row));
        }
        EXPECT_EQ(list->SelectedCount(), static_cast<int>(data.size()));
        return data;
    }

    System system;
    Client client;
    std::unique_ptr<ListPeer> list;
};
TYPED_TEST_SUITE_P(ListPeerContract);

TYPED_TEST_P(ListPeerContract, ARowInsertedBeyondTheEndStandsAtTheEnd) {
    EXPECT_EQ(this->Insert(99, 7), 10);
    EXPECT_EQ(this->Insert(-1, 8), -1);
    EXPECT_EQ(this->list->RowCount(), 11);
    EXPECT_EQ(this->list->FindData(7, -1), 10);
    EXPECT_EQ(this->list->FindData(7, 10), -1);
}

TYPED_TEST_P(ListPeerContract, ARowThatIsNotThereIsHarmless) {
    EXPECT_FALSE(this->list->DeleteRow(10));
    EXPECT_EQ(this->list->Data(10), 0U);
    EXPECT_FALSE(this->list->SetFocusRow(10));
    this->list->Select(10, 20, true);
    EXPECT_EQ(this->list->SelectedCount(), 0);
    CRect rect;
    EXPECT_FALSE(this->list->RowRect(10, RowPart::Bounds, rect));
}

TYPED_TEST_P(ListPeerContract, SelectionFocusAndAnchorStayWithTheirRows) {
    ListPeer& rows = *this->list;
    rows.Select(3, 3, true);
    rows.Select(5, 6, true);
    rows.SetFocusRow(5);
    rows.SetAnchor(6);

    this->Insert(0, 99);
    rows.DeleteRow(5);  // 104, between them

    EXPECT_THAT(this->SelectedData(), testing::ElementsAre(103, 105, 106));
    EXPECT_EQ(rows.Data(rows.FocusRow()), 105U);
    EXPECT_EQ(rows.Data(rows.Anchor()), 106U);
}

TYPED_TEST_P(ListPeerContract, ADeletedRowTakesItsSelectionAlongAndLeavesTheFocusToTheNext) {
    ListPeer& rows = *this->list;
    rows.Select(8, 9, true);
    rows.SetFocusRow(8);

    rows.DeleteRow(8);
    EXPECT_THAT(this->SelectedData(), testing::ElementsAre(109));
    EXPECT_EQ(rows.Data(rows.FocusRow()), 109U);
    rows.DeleteRow(8);

    EXPECT_THAT(this->SelectedData(), testing::IsEmpty());
    EXPECT_EQ(rows.Data(rows.FocusRow()), 107U);
}

TYPED_TEST_P(ListPeerContract, NothingIsLeftOfASelectionOfDeletedRows) {
    this->list->Select(0, 9, true);
    this->list->SetFocusRow(4);

    this->list->DeleteAllRows();
    this->Insert(0, 1);

    EXPECT_EQ(this->list->SelectedCount(), 0);
    EXPECT_EQ(this->list->FocusRow(), -1);
    EXPECT_FALSE(this->list->IsSelected(0));
}

TYPED_TEST_P(ListPeerContract, ANewOrderKeepsSelectionAndFocusWithTheirRows) {
    ListPeer& rows = *this->list;
    rows.Select(0, 1, true);
    rows.SetFocusRow(1);

    rows.Reorder({9, 8, 7, 6, 5, 4, 3, 2, 1, 0});

    EXPECT_EQ(rows.Data(0), 109U);
    EXPECT_THAT(this->SelectedData(), testing::ElementsAre(101, 100));
    EXPECT_EQ(rows.FocusRow(), 8);
}

TYPED_TEST_P(ListPeerContract, WhatChangesWhileDrawingIsOffIsThereAtOnceAndAfterwards) {
    ListPeer& rows = *this->list;
    for (DWORD data = 110; data < 200; ++data) this->Insert(rows.RowCount(), data);
    rows.EnsureVisible(60, false);
    const int top = rows.TopRow();

    rows.SetRedraw(false);
    rows.DeleteRow(99);
    this->Insert(99, 7);
    rows.SetFocusRow(99);
    EXPECT_EQ(rows.RowCount(), 100);
    EXPECT_EQ(rows.TopRow(), top);
    rows.SetRedraw(true);

    EXPECT_EQ(rows.Data(rows.FocusRow()), 7U);
    EXPECT_EQ(rows.TopRow(), top);
    rows.SetRedraw(false);
    rows.DeleteAllRows();
    for (DWORD data = 0; data < 300; ++data) this->Insert(rows.RowCount(), data);
    rows.EnsureVisible(299, false);
    rows.SetRedraw(true);
    EXPECT_EQ(rows.TopRow(), 300 - rows.RowsPerPage());
}

TYPED_TEST_P(ListPeerContract, OnlyChangesAreToldAndSeveralRowsOnce) {
    using Change = std::pair<int, UINT>;
    this->list->Select(2, 2, true);
    this->list->Select(2, 2, true);
    this->list->Select(2, 3, true);
    this->list->Select(0, 9, false);

    EXPECT_THAT(
        this->client.changes,
        testing::ElementsAre(Change(2, LVIS_SELECTED), Change(3, LVIS_SELECTED), Change(-1, 0)));
}

TYPED_TEST_P(ListPeerContract, TheMiddleOfACellHitsItAlsoAfterColumnsWereMoved) {
    ListPeer& rows = *this->list;
    ASSERT_TRUE(rows.SetColumnOrder({2, 0, 1}));

    for (int column = 0; column < 3; ++column) {
        CRect cell;
        ASSERT_TRUE(rows.CellRect(4, column, cell)) << column;
        const ListHit hit = rows.HitTest(cell.CenterPoint());
        EXPECT_EQ(hit.row, 4);
        EXPECT_EQ(hit.column, column);
        EXPECT_EQ(hit.flags, LVHT_ONITEMLABEL);
    }
    CRect first;
    CRect last;
    rows.CellRect(0, 2, first);
    rows.CellRect(0, 1, last);
    EXPECT_LT(first.left, last.left);
}

TYPED_TEST_P(ListPeerContract, AnOrderThatIsNoneIsRefused) {
    EXPECT_FALSE(this->list->SetColumnOrder({0, 0, 1}));
    EXPECT_FALSE(this->list->SetColumnOrder({0, 1}));
    EXPECT_FALSE(this->list->SetColumnOrder({0, 1, 3}));
    EXPECT_THAT(this->list->ColumnOrder(), testing::ElementsAre(0, 1, 2));
}

TYPED_TEST_P(ListPeerContract, ADeletedColumnLeavesTheOthersInTheirOrder) {
    this->list->SetColumnOrder({2, 1, 0});

    this->list->DeleteColumn(1);

    EXPECT_THAT(this->list->ColumnOrder(), testing::ElementsAre(1, 0));
    EXPECT_EQ(this->list->Column(1).width, 40);
}

TYPED_TEST_P(ListPeerContract, APointOffAllRowsHitsNone) {
    EXPECT_EQ(this->list->HitTest({399, 199}).row, -1);
    EXPECT_EQ(this->list->HitTest({5, 500}).flags & LVHT_BELOW, LVHT_BELOW);
    EXPECT_EQ(this->list->HitTest({-1, 50}).flags & LVHT_TOLEFT, LVHT_TOLEFT);
}

TYPED_TEST_P(ListPeerContract, ARowBroughtIntoViewIsHitWhereItStands) {
    ListPeer& rows = *this->list;
    for (DWORD data = 110; data < 200; ++data) this->Insert(rows.RowCount(), data);

    for (const int row : {99, 0, 50, 45}) {
        ASSERT_TRUE(rows.EnsureVisible(row, false));
        CRect rect;
        ASSERT_TRUE(rows.CellRect(row, 1, rect));
        EXPECT_EQ(rows.HitTest(rect.CenterPoint()).row, row);
        EXPECT_GE(row, rows.TopRow());
        EXPECT_LT(row, rows.TopRow() + rows.RowsPerPage());
        EXPECT_THAT(rows.VisibleRows(), testing::Contains(row));
    }
}

TYPED_TEST_P(ListPeerContract, AnIconIsHitWhereItWasPut) {
    ListPeer& rows = *this->list;
    rows.SetMode(ListMode::Icon);
    ASSERT_TRUE(rows.SetIconPosition(3, {230, 155}));

    CPoint position;
    ASSERT_TRUE(rows.IconPosition(3, position));
    EXPECT_EQ(position, (CPoint{230, 155}));
    const ListHit hit = rows.HitTest({235, 160});
    EXPECT_EQ(hit.row, 3);
    EXPECT_EQ(hit.flags, LVHT_ONITEMICON);
}

TYPED_TEST_P(ListPeerContract, AMillionRowsCanBeSelectedByRanges) {
    ListPeer& rows = *this->list;
    constexpr int kRows = 1000000;
    rows.ReserveRows(kRows);
    while (rows.RowCount() < kRows) this->Insert(rows.RowCount(), 1);

    rows.Select(0, kRows - 1, true);
    rows.Select(10, kRows - 11, false);

    EXPECT_EQ(rows.SelectedCount(), 20);
    EXPECT_EQ(rows.NextSelected(9), kRows - 10);
}

REGISTER_TYPED_TEST_SUITE_P(ListPeerContract, ARowInsertedBeyondTheEndStandsAtTheEnd,
                            ARowThatIsNotThereIsHarmless, SelectionFocusAndAnchorStayWithTheirRows,
                            ADeletedRowTakesItsSelectionAlongAndLeavesTheFocusToTheNext,
                            NothingIsLeftOfASelectionOfDeletedRows,
                            ANewOrderKeepsSelectionAndFocusWithTheirRows,
                            WhatChangesWhileDrawingIsOffIsThereAtOnceAndAfterwards,
                            OnlyChangesAreToldAndSeveralRowsOnce,
                            TheMiddleOfACellHitsItAlsoAfterColumnsWereMoved,
                            AnOrderThatIsNoneIsRefused, ADeletedColumnLeavesTheOthersInTheirOrder,
                            APointOffAllRowsHitsNone, ARowBroughtIntoViewIsHitWhereItStands,
                            AnIconIsHitWhereItWasPut, AMillionRowsCanBeSelectedByRanges);

// One line of text; `kText` holds characters of one to three bytes.
template <class System>
class EditPeerContract : public testing::Test {
protected:
    static constexpr const char* kText = "a\xC3\xA9\xE6\x9D\xB1z";

    void SetUp() override { edit = system.MakeEditPeer({nullptr, {0, 0, 200, 20}, 0}); }

    LocaleInForce locale{"en-US"};

    System system;
    std::unique_ptr<EditPeer> edit;
};
TYPED_TEST_SUITE_P(EditPeerContract);

TYPED_TEST_P(EditPeerContract, ASelectionSplitsNoCharacter) {
    this->edit->SetText(this->kText);

    this->edit->Select({5, 2});
    EXPECT_EQ(this->edit->Selection(), (EditSelection{3, 1}));
    this->edit->Select({-3, 99});
    EXPECT_EQ(this->edit->Selection(), (EditSelection{0, 7}));
}

TYPED_TEST_P(EditPeerContract, ANewTextPutsTheCaretAtTheStart) {
    this->edit->SetText(this->kText);
    this->edit->Select({7, 7});

    this->edit->SetText("b");

    EXPECT_EQ(this->edit->Selection(), EditSelection());
}

TYPED_TEST_P(EditPeerContract, WhatReplacesTheSelectionStandsBeforeTheCaret) {
    this->edit->SetText(this->kText);
    this->edit->Select({6, 1});

    this->edit->ReplaceSelection("\xC3\xBC");

    EXPECT_EQ(this->edit->Text(), CString("a\xC3\xBCz"));
    EXPECT_EQ(this->edit->Selection(), (EditSelection{3, 3}));
}

REGISTER_TYPED_TEST_SUITE_P(EditPeerContract, ASelectionSplitsNoCharacter,
                            ANewTextPutsTheCaretAtTheStart,
                            WhatReplacesTheSelectionStandsBeforeTheCaret);

}  // namespace orvo
