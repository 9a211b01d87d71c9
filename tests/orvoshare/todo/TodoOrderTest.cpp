// The orders of to-dos.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <random>

#include <orvoshare/todo/TodoFixture.h>
#include <platform/text/Collation.h>
#include <platform/window/list/ListSort.h>

namespace orvo {
namespace {

constexpr eSortOrder kAllOrders[] = {eSortByPriorityDueDate, eSortByDueDatePriority,
                                     eSortByCategoryDueDate, eSortByCategoryPriority};

class TodoOrder : public TodoFixture, public testing::WithParamInterface<LocaleCase> {
protected:
    TodoOrder() : TodoFixture(GetParam()) {
        view->AddAllItemData(&table);  // from now on the view knows the categories
    }

    int Compare(const CToDoRecord* left, const CToDoRecord* right) {
        return TodoCompareRecords(LParamOf(left), LParamOf(right),
                                  LParamOf<CTodoListbox>(view.get()));
    }
    int Compare(const AToDo& left, const AToDo& right) {
        return Compare(Make(left).get(), Make(right).get());
    }
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, TodoOrder, testing::ValuesIn(kBothCodePages));

TEST_P(TodoOrder, TheKeysDecideOneAfterTheOther) {
    for (const char* name : {"co-op", "coop", "かな"}) AddCategory(table, name);
    const int hyphen = 3;
    const AToDo inPlain{.category = 4};
    const int kana = 5;
    const AToDo unknown{.priority = 5, .category = 15};
    const AToDo early{.due = 8, .placement = 2};
    const AToDo late{.due = 9, .placement = 1};
    const AToDo urgent{.priority = 2, .placement = 9};
    const AToDo lower{.placement = -5};
    const std::tuple<const char*, eSortOrder, AToDo, AToDo, int> rows[] = {
        {"priority first", eSortByPriorityDueDate, urgent, early, -1},
        {"then the date", eSortByPriorityDueDate, late, early, 1},
        {"then the placement", eSortByPriorityDueDate, lower, {}, -1},
        {"all equal", eSortByPriorityDueDate, {}, {}, 0},
        {"no date comes last", eSortByDueDatePriority, urgent, {.due = kMaxDate - 1}, 1},
        {"then priority", eSortByDueDatePriority, urgent, {}, -1},
        {"then the placement", eSortByDueDatePriority, lower, {}, -1},
        {"a hyphen is a sign", eSortByCategoryDueDate, {.category = hyphen}, inPlain, -1},
        {"kana come late", eSortByCategoryDueDate, {.category = kana}, inPlain, 1},
        {"in a category by date, not by priority", eSortByCategoryDueDate, urgent, early, 1},
        {"then by placement", eSortByCategoryDueDate, lower, {}, -1},
        {"an unknown category comes first", eSortByCategoryPriority, unknown, inPlain, -1},
        {"unknown ones are one", eSortByCategoryDueDate, unknown, {.category = 14}, 0},
        {"in a category by priority, not by date", eSortByCategoryPriority, urgent, early, -1},
        {"then by placement", eSortByCategoryPriority, lower, {}, -1},
        {"an unknown order", kUnknownOrder, {}, {}, -1},
    };
    for (const auto& [why, order, left, right, want] : rows) {
        view->SetSortOrder(order);
        EXPECT_EQ(Compare(left, right), want) << why;
        if (order == kUnknownOrder) continue;
        EXPECT_EQ(Compare(right, left), -want) << why;
    }
}

TEST_P(TodoOrder, NothingIsComparedWithNothing) {
    const auto record = Make({});
    view->SetSortOrder(kUnknownOrder);
    EXPECT_EQ(Compare(record.get(), nullptr), 0);
    EXPECT_EQ(Compare(nullptr, record.get()), 0);
    EXPECT_EQ(TodoCompareRecords(LParamOf(record.get()), LParamOf(record.get()), 0), 0);
    EXPECT_EQ(TodoCompareRowToRecord(0, LParamOf(record.get()), 0), 0);
}

TEST_P(TodoOrder, TheHeadingMarksTheFirstKeyAndTheRowsStay) {
    constexpr int kColumns[] = {TodoColumn::Priority, TodoColumn::DueDate, TodoColumn::Category,
                                TodoColumn::Category};
    Store({{.name = "b", .priority = 2, .due = 1}, {.name = "a", .priority = 1, .due = 2}});
    Fill();
    for (const eSortOrder order : kAllOrders) {
        view->SetSortOrder(order);
        EXPECT_EQ(view->GetSortColumn(), kColumns[order]);
        EXPECT_EQ(Names(), "a b") << order;
    }
    view->SetSortOrder(kUnknownOrder);
    EXPECT_EQ(view->GetSortColumn(), -1);
}

// Few values, so that every key is often equal; two categories have one name, and some have none.
class RandomToDos : public TodoOrder {
protected:
    RandomToDos() {
        int index = 1;
        for (const char* name : {"coop", "co-op", "coop", "Coop", "かな", "カナ", "zoo", "Ärger"}) {
            engine.WriteText(TableKind::ToDo, StoreEngine::TextKind::Category, index++, name);
        }
        EXPECT_EQ(table.RefreshTexts(), 0);
    }

    std::unique_ptr<CToDoRecord> MakeRandom() {
        const auto number = [this](int count) { return static_cast<int>(random() % count); };
        const int date = number(4);
        return Make({.priority = 1 + number(5),
                     .due = date == 0 ? kMaxDate : date * 1'000'000'000L - 1,
                     .category = number(kCategoryCount),
                     .placement = number(7) - 3});
    }

    std::mt19937 random{17};
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, RandomToDos, testing::ValuesIn(kBothCodePages));

TEST_P(RandomToDos, SortByKeysAsByTheCompareFunction) {
    for (int row = 0; row < 400; ++row) view->InsertRecord(row, MakeRandom().release(), 0);
    for (const eSortOrder order : kAllOrders) {
        std::vector<CToDoRecord*> want;
        for (int row = 0; row < 400; ++row) want.push_back(RecordAt(row));
        view->SetSortOrder(order);
        std::stable_sort(want.begin(), want.end(), [&](const auto* left, const auto* right) {
            return Compare(left, right) < 0;
        });

        EXPECT_NE(view->Resort(), 0);

        for (int row = 0; row < 400; ++row) {
            ASSERT_EQ(RecordAt(row), want[static_cast<std::size_t>(row)]) << order << ' ' << row;
        }
    }
    view->SetSortOrder(kUnknownOrder);
    EXPECT_NE(view->Resort(), 0);
    EXPECT_EQ(view->GetItemCount(), 400);
}

TEST_P(RandomToDos, InsertedOneByOneStandAsAfterAWholeSort) {
    for (const eSortOrder order : kAllOrders) {
        view->DeleteAll();
        view->SetSortOrder(order);
        for (int i = 0; i < 200; ++i) {
            auto record = MakeRandom();
            const CToDoRecord* added = record.get();
            const int row = view->InsertRecord(-7, record.release(), 1);
            ASSERT_EQ(RecordAt(row), added);
        }
        for (int row = 1; row < 200; ++row) {
            ASSERT_LE(Compare(RecordAt(row - 1), RecordAt(row)), 0) << order << ' ' << row;
        }
    }
}

}  // namespace
}  // namespace orvo
