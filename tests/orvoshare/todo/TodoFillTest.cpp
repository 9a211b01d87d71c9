// Filling the list of to-dos; the leak check tells where a record isn't freed.
// SPDX-License-Identifier: MIT
#include <orvoshare/todo/TodoFixture.h>

namespace orvo {
namespace {

using testing::ElementsAre;

// Every way to fill, each into an empty list.
class TodoFill : public TodoFixture {
protected:
    void FillByCategory() {
        CToDoIterator iterator(table);
        view->AddByCategory(iterator, table);
    }
    void ExpectBothWays(const std::string& want) {
        view->DeleteAll();
        view->AddAllItemData(&table);
        EXPECT_EQ(Names(), want) << "in one pass";
        view->DeleteAll();
        FillByCategory();
        EXPECT_EQ(Names(), want) << "by category";
    }
};

TEST_F(TodoFill, EitherWayGivesThePassingRecordsInOrder) {
    ExpectBothWays("");
    Store({{.name = "late", .priority = 5, .category = kPersonal},
           {.name = "first", .priority = 1},
           {.name = "done", .isCompleted = true},
           {.name = "second", .priority = 2, .category = kPersonal},
           {.name = "old", .isArchived = true},
           {.name = "third", .priority = 3}});
    view->HideCompletedItems(1);

    ExpectBothWays("first second third late");
}

TEST_F(TodoFill, ADamagedRecordHidesNobodyElse) {
    Store({{.name = "1", .priority = 1}, {.name = "2", .priority = 2, .category = kPersonal}});
    StoreDamaged(TableKind::ToDo);
    StoreDamaged(TableKind::ToDo, kPersonal);
    Store({{.name = "3", .priority = 3}, {.name = "4", .priority = 4, .category = kPersonal}});

    ExpectBothWays("1 2 3 4");
}

TEST_F(TodoFill, ACategoryThatTheTableDoesntKnowIsLeftOutOfTheWalkByCategory) {
    Store({{.name = "known"}, {.name = "unknown", .category = 9}});
    FillByCategory();
    EXPECT_EQ(Names(), "known");
}

TEST_F(TodoFill, TheSecondFillAddsToTheFirstAndARefreshReplacesIt) {
    Store({{.name = "1", .priority = 1}, {.name = "2", .priority = 2}});
    view->AddAllItemData(&table);
    view->AddAllItemData(&table);
    EXPECT_EQ(Names(), "1 1 2 2");
    Fill();
    EXPECT_EQ(Names(), "1 2");
    view->RefreshAllItemData(nullptr);
    EXPECT_EQ(Names(), "");
}

TEST_F(TodoFill, ARefreshDrawsNothingInBetweenAndTakesTheWaitingShapeBack) {
    Store({{.name = "1"}});
    const HCURSOR before = GetCursor();

    view->changes.clear();

    Fill();

    EXPECT_THAT(view->changes, ElementsAre("no drawing", "empty", "insert", "sort", "drawing"));
    ASSERT_EQ(system.Cursors().size(), 2U);
    EXPECT_EQ(system.Cursors().front(), LoadStandardCursor(IDC_WAIT));
    EXPECT_EQ(GetCursor(), before);
}

}  // namespace
}  // namespace orvo
