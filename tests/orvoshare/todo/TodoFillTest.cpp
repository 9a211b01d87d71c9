// Filling the list of to-dos; the leak check tells where a record isn't freed.
// SPDX-License-Identifier: MIT
#include "TodoListFixture.h"

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

// Every way to fill, each into an empty list.
class TodoFill : public TodoListTest {
protected:
    void FillByCategory() {
        CToDoIterator iterator(table);
        view->AddByCategory(iterator, table);
    }
    void ExpectBothWays(const std::vector<std::string>& want) {
        view->DeleteAll();
        view->AddAllItemData(&table);
        EXPECT_THAT(Names(), ElementsAreArray(want)) << "in one pass";
        view->DeleteAll();
        FillByCategory();
        EXPECT_THAT(Names(), ElementsAreArray(want)) << "by category";
    }
};

TEST_F(TodoFill, EitherWayGivesThePassingRecordsInOrder) {
    const int work = AddCategory("Work");
    Store({{.name = "late", .priority = 5, .category = work},
           {.name = "first", .priority = 1},
           {.name = "done", .isCompleted = true},
           {.name = "second", .priority = 2, .category = work},
           {.name = "old", .isArchived = true},
           {.name = "third", .priority = 3}});
    view->HideCompletedItems(1);

    ExpectBothWays({"first", "second", "third", "late"});
}

TEST_F(TodoFill, AnEmptyTableGivesNoRow) {
    ExpectBothWays({});
}

TEST_F(TodoFill, ATableWhoseRecordsAllFailGivesNoRow) {
    Store({{.isArchived = true}, {.isArchived = true}});
    ExpectBothWays({});
}

TEST_F(TodoFill, ADamagedRecordHidesNobodyElse) {
    const int work = AddCategory("Work");
    Store({{.name = "1", .priority = 1}, {.name = "2", .priority = 2, .category = work}});
    StoreDamaged();
    StoreDamaged(work);
    Store({{.name = "3", .priority = 3}, {.name = "4", .priority = 4, .category = work}});

    ExpectBothWays({"1", "2", "3", "4"});
}

TEST_F(TodoFill, ACategoryThatTheTableDoesntKnowIsLeftOutOfTheWalkByCategory) {
    Store({{.name = "known"}, {.name = "unknown", .category = 9}});
    FillByCategory();
    EXPECT_THAT(Names(), ElementsAre("known"));
}

TEST_F(TodoFill, TheSecondFillAddsToTheFirst) {
    Store({{.name = "1", .priority = 1}, {.name = "2", .priority = 2}});
    view->AddAllItemData(&table);
    view->AddAllItemData(&table);
    EXPECT_THAT(Names(), ElementsAre("1", "1", "2", "2"));

    view->RefreshAllItemData(&table);
    EXPECT_THAT(Names(), ElementsAre("1", "2"));
    view->DeleteAll();
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(TodoFill, WithoutATableARefreshEmptiesTheList) {
    Store({{.name = "1"}});
    view->RefreshAllItemData(&table);
    view->RefreshAllItemData(nullptr);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(TodoFill, ARefreshDrawsNothingInBetweenAndTakesTheWaitingShapeBack) {
    Store({{.name = "1"}});
    const HCURSOR before = GetCursor();

    view->RefreshAllItemData(&table);

    EXPECT_THAT(view->told, ElementsAre("no drawing", "empty", "insert", "sort", "drawing"));
    EXPECT_EQ(view->GetItemCount(), 1);
    ASSERT_EQ(system.Cursors().size(), 2U);
    EXPECT_EQ(system.Cursors().front(), LoadStandardCursor(IDC_WAIT));
    EXPECT_EQ(GetCursor(), before);
}

}  // namespace
}  // namespace orvo
