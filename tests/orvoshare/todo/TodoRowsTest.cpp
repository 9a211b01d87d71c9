// Rows of to-dos that are put in, moved and taken out.
// SPDX-License-Identifier: MIT
#include <array>

#include <orvoshare/todo/TodoFixture.h>

namespace orvo {
namespace {

// Three rows: "1", "2" and "3", by their priorities.
class TodoRows : public TodoFixture {
protected:
    TodoRows() {
        Store({{.name = "1", .priority = 1}, {.name = "2", .priority = 2}, {.name = "3"}});
        Fill();
    }

    using Repair = int (CTodoListbox::*)(int);
    static constexpr Repair kRepairs[] = {&CTodoListbox::ReSort, &CTodoListbox::ReSortSingleItem};
    int Run(Repair repair, int row) { return (*view.*repair)(row); }
};

TEST_F(TodoRows, AChangedRowMovesToItsPlaceAndIsSelected) {
    for (const Repair repair : kRepairs) {
        RecordAt(0)->SetPriority(5);
        EXPECT_EQ(Run(repair, 0), 2);
        EXPECT_EQ(Names(), "2 3 1");
        EXPECT_THAT(Selected(), ElementsAre(2));

        RecordAt(2)->SetPriority(1);
        EXPECT_EQ(Run(repair, 2), 0);
        EXPECT_EQ(Names(), "1 2 3");
        EXPECT_NE(view->IsItemSelected(0), 0);
        view->SelectAllItems(0);
    }
}

TEST_F(TodoRows, OneRowMovesWithItsRecordAndWithoutASortUnlessItStandsRight) {
    view->changes.clear();
    EXPECT_EQ(view->ReSort(1), 1);
    EXPECT_THAT(view->changes, IsEmpty());
    EXPECT_THAT(Selected(), IsEmpty());
    const CToDoRecord* record = RecordAt(0);
    RecordAt(0)->SetPriority(5);
    EXPECT_EQ(view->ReSortSingleItem(0), 2);
    EXPECT_EQ(RecordAt(2), record);
    EXPECT_THAT(view->changes, ElementsAre("no drawing", "delete", "insert", "drawing"));
}

TEST_F(TodoRows, ARowThatNoLongerPassesGoesAndTheOneAtItsPlaceIsTold) {
    constexpr std::tuple<int, int, const char*> kRows[] = {{1, 1, "1 3"}, {1, 0, "1"}, {0, -1, ""}};
    for (const Repair repair : kRepairs) {
        Fill();
        view->HideCompletedItems(1);
        for (const auto& [row, want, left] : kRows) {
            RecordAt(row)->SetCompleted(1, 0);
            EXPECT_EQ(Run(repair, row), want);
            EXPECT_EQ(Names(), left);
            EXPECT_THAT(Selected(), IsEmpty());
        }
        view->HideCompletedItems(0);
        for (std::int64_t id = 1; id <= 3; ++id) Stored(id)->SetCompleted(0, 0);
    }
}

TEST_F(TodoRows, ARowThatIsntThereIsNotRepaired) {
    for (const Repair repair : kRepairs) {
        EXPECT_EQ(Run(repair, 3), -1);
        EXPECT_EQ(Run(repair, -1), -1);
    }
    EXPECT_EQ(view->VerifyCurrentOrder(3), 0);
    EXPECT_EQ(view->VerifyCurrentOrder(-1), 0);
    EXPECT_EQ(Names(), "1 2 3");
}

TEST_F(TodoRows, EachNeighbourIsAsked) {
    constexpr std::tuple<const char*, std::array<int, 3>, std::array<int, 3>> kRows[] = {
        {"in order", {1, 2, 3}, {1, 1, 1}},
        {"equal ones are in order", {2, 2, 2}, {1, 1, 1}},
        {"the first is behind the second", {3, 2, 3}, {0, 0, 1}},
        {"the last is before the second", {1, 2, 1}, {1, 0, 0}},
    };
    for (const auto& [why, priorities, want] : kRows) {
        for (std::size_t i = 0; i < 3; ++i) {
            RecordAt(static_cast<int>(i))->SetPriority(priorities[i]);
        }
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(view->VerifyCurrentOrder(static_cast<int>(i)), want[i]) << why << ' ' << i;
        }
    }
    view->SetSortOrder(kUnknownOrder);
    for (int row = 0; row < 3; ++row) EXPECT_EQ(view->VerifyCurrentOrder(row), 1) << row;
}

TEST_F(TodoRows, AnUnsortedRowGoesWhereItIsTold) {
    EXPECT_EQ(view->InsertRecord(1, Make({.name = "new", .priority = 5}).release(), 0), 1);
    EXPECT_EQ(view->InsertRecord(0, nullptr, 1), -1);
    EXPECT_EQ(Names(), "1 new 2 3");
}

// The leak check tells where the record isn't freed.
TEST_F(TodoRows, ARecordThatFindsNoRowIsFreed) {
    TodoList withoutWindow;
    EXPECT_EQ(withoutWindow.InsertRecord(0, Make({}).release(), 0), -1);
    EXPECT_EQ(withoutWindow.InsertRecord(0, Make({}).release(), 1), -1);
    EXPECT_EQ(withoutWindow.GetIndexToInsert(Make({}).get()), 0U);
}

}  // namespace
}  // namespace orvo
