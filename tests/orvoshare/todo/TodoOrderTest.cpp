// The orders of to-dos.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <random>
#include <tuple>

#include <orvoshare/todo/TodoListbox.h>
#include <platform/text/Collation.h>
#include <platform/window/ListSort.h>
#include <support/CodePages.h>

#include "TodoListFixture.h"

namespace orvo {
namespace {

constexpr eSortOrder kAllOrders[] = {eSortByPriorityDueDate, eSortByDueDatePriority,
                                     eSortByCategoryDueDate, eSortByCategoryPriority};
constexpr auto kUnknownOrder = static_cast<eSortOrder>(4);

class TodoOrder : public TodoListTest, public testing::WithParamInterface<LocaleCase> {
protected:
    TodoOrder() : TodoListTest(GetParam().tag, GetParam().codePage) {
        view->AddAllItemData(&table);  // from now on the view knows the categories
    }

    int Compare(const CToDoRecord* left, const CToDoRecord* right) {
        return TodoCompareRecords(LParamOf(left), LParamOf(right),
                                  LParamOf<CTodoListbox>(view.get()));
    }
    int Compare(const AToDo& left, const AToDo& right) {
        return Compare(Make(left).get(), Make(right).get());
    }
    CString NameOf(const CToDoRecord& record) {
        int category = -1;
        record.GetCategoryId(category);
        CString name;
        view->GetCategoryName(name, category);
        return name;
    }
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, TodoOrder, testing::ValuesIn(kBothCodePages));

TEST_P(TodoOrder, TheKeysDecideOneAfterTheOther) {
    const int hyphen = AddCategory("co-op");
    const int plain = AddCategory("coop");
    const int kana = AddCategory("かな");
    constexpr int kUnknown = 15;
    struct Row {
        const char* why;
        eSortOrder order;
        AToDo left;
        AToDo right;
        int want;
    };
    const Row rows[] = {
        {"priority first", eSortByPriorityDueDate, {.priority = 1, .due = 9}, {.due = 8}, -1},
        {"then the date",
         eSortByPriorityDueDate,
         {.due = 9, .placement = 1},
         {.due = 8, .placement = 2},
         1},
        {"then the placement", eSortByPriorityDueDate, {.placement = -5}, {.placement = 2}, -1},
        {"all equal", eSortByPriorityDueDate, {}, {}, 0},
        {"no date comes last", eSortByDueDatePriority, {.priority = 1}, {.due = kMaxDate - 1}, 1},
        {"then priority", eSortByDueDatePriority, {.priority = 2, .placement = 9}, {}, -1},
        {"a hyphen is a sign",
         eSortByCategoryDueDate,
         {.category = hyphen},
         {.category = plain},
         -1},
        {"kana come late", eSortByCategoryDueDate, {.category = kana}, {.category = plain}, 1},
        {"an unknown category comes first",
         eSortByCategoryPriority,
         {.priority = 5, .category = kUnknown},
         {.priority = 1, .category = hyphen},
         -1},
        {"unknown ones are one",
         eSortByCategoryPriority,
         {.category = kUnknown},
         {.category = kUnknown - 1},
         0},
        {"in a category by date",
         eSortByCategoryDueDate,
         {.priority = 1, .due = 9},
         {.priority = 2, .due = 8},
         1},
        {"or by priority",
         eSortByCategoryPriority,
         {.priority = 1, .due = 9},
         {.priority = 2, .due = 8},
         -1},
        {"an unknown order", kUnknownOrder, {}, {}, -1},
    };
    for (const Row& row : rows) {
        view->SetSortOrder(row.order);
        EXPECT_EQ(Compare(row.left, row.right), row.want) << row.why;
        if (row.order != kUnknownOrder) {
            EXPECT_EQ(Compare(row.right, row.left), -row.want) << row.why;
        }
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
    view->RefreshAllItemData(&table);
    for (const eSortOrder order : kAllOrders) {
        view->SetSortOrder(order);
        EXPECT_EQ(view->GetSortColumn(), kColumns[order]);
        EXPECT_EQ(view->GetSortOrder(), order);
        EXPECT_THAT(Names(), testing::ElementsAre("a", "b")) << order;
    }
    view->SetSortOrder(kUnknownOrder);
    EXPECT_EQ(view->GetSortColumn(), -1);
    EXPECT_EQ(view->GetSortOrder(), kUnknownOrder);
}

TEST_P(TodoOrder, ACategoryThatNobodyKnowsHasNoName) {
    const int index = AddCategory("Work");
    CString name("old");
    view->GetCategoryName(name, index);
    EXPECT_EQ(name, "Work");
    for (const int unknown : {15, 16, -1}) {
        view->GetCategoryName(name, unknown);
        EXPECT_TRUE(name.IsEmpty()) << unknown;
    }
    TodoListInReach withoutTable;
    name = "old";
    withoutTable.GetCategoryName(name, index);
    EXPECT_TRUE(name.IsEmpty());
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
    void FillRandomly(int count) {
        for (int i = 0; i < count; ++i) view->InsertRecord(i, MakeRandom().release(), 0);
    }

    std::mt19937 random{17};
};
INSTANTIATE_TEST_SUITE_P(BothCodePages, RandomToDos, testing::ValuesIn(kBothCodePages));

// The orders once more, written as the keys of a tuple.
struct CollatedName {
    CString text;
    friend bool operator<(const CollatedName& left, const CollatedName& right) {
        return CompareStringA(LOCALE_SYSTEM_DEFAULT, SORT_STRINGSORT, left.text, -1, right.text,
                              -1) == CSTR_LESS_THAN;
    }
};
using Keys = std::tuple<CollatedName, long, long, long>;

Keys KeysOf(const CToDoRecord& record, eSortOrder order, const CString& name) {
    int priority = 0;
    int placement = 0;
    long due = 0;
    record.GetPriority(priority);
    record.GetPlacementPos(placement);
    record.GetDueDate(due);
    switch (order) {
        case eSortByPriorityDueDate:
            return {{}, priority, due, placement};
        case eSortByDueDatePriority:
            return {{}, due, priority, placement};
        case eSortByCategoryDueDate:
            return {{name}, due, placement, 0};
        case eSortByCategoryPriority:
            return {{name}, priority, placement, 0};
    }
    return {};
}

TEST_P(RandomToDos, CompareAsTheTuplesOfTheirKeys) {
    FillRandomly(120);
    for (const eSortOrder order : kAllOrders) {
        view->SetSortOrder(order);
        for (int i = 0; i < 120; ++i) {
            for (int j = 0; j < 120; ++j) {
                const Keys left = KeysOf(*Record(i), order, NameOf(*Record(i)));
                const Keys right = KeysOf(*Record(j), order, NameOf(*Record(j)));
                ASSERT_EQ(Compare(Record(i), Record(j)), int{right < left} - int{left < right})
                    << order << " rows " << i << ", " << j;
            }
        }
    }
}

TEST_P(RandomToDos, SortByKeysAsByTheCompareFunction) {
    FillRandomly(400);
    for (const eSortOrder order : kAllOrders) {
        std::vector<CToDoRecord*> want;
        for (int row = 0; row < 400; ++row) want.push_back(Record(row));
        view->SetSortOrder(order);
        std::stable_sort(want.begin(), want.end(), [&](const auto* left, const auto* right) {
            return Compare(left, right) < 0;
        });

        EXPECT_NE(view->Resort(), 0);

        for (int row = 0; row < 400; ++row) {
            ASSERT_EQ(Record(row), want[static_cast<std::size_t>(row)]) << order << ' ' << row;
        }
    }
}

TEST_P(RandomToDos, InsertedOneByOneStandAsAfterAWholeSort) {
    for (const eSortOrder order : kAllOrders) {
        view->DeleteAll();
        view->SetSortOrder(order);
        for (int i = 0; i < 200; ++i) {
            auto record = MakeRandom();
            const CToDoRecord* added = record.get();
            const int row = view->InsertRecord(-7, record.release(), 1);
            ASSERT_EQ(Record(row), added);
        }
        for (int row = 1; row < 200; ++row) {
            ASSERT_LE(Compare(Record(row - 1), Record(row)), 0) << order << ' ' << row;
        }
    }
}

TEST_P(RandomToDos, HaveNoKeysInAnUnknownOrder) {
    FillRandomly(50);
    view->SetSortOrder(kUnknownOrder);
    EXPECT_NE(view->Resort(), 0);
    EXPECT_EQ(view->GetItemCount(), 50);
}

}  // namespace
}  // namespace orvo
