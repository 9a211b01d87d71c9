// Filling the list of to-dos, and what it shows; the leak check tells of records that aren't freed.
// SPDX-License-Identifier: MIT
#include <orvoshare/todo/TodoFixture.h>

namespace orvo {
namespace {

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

using TodoFilter = TodoFixture;

struct Flags {
    bool dueOnly = false, hidesCompleted = false, hidesPrivate = false;
    int category = kAllCategories;
};

TEST_F(TodoFilter, EachTestAloneKeepsARecordOut) {
    const std::tuple<const char*, Flags, AToDo, int> rows[] = {
        {"nothing is hidden", {}, {.due = Day(6), .isCompleted = true, .isPrivate = true}, 1},
        {"but the archived", {}, {.isArchived = true}, 0},
        {"due before", {.dueOnly = true}, {.due = Day(-1)}, 1},
        {"due in the last second of today", {.dueOnly = true}, {.due = Day(1) - 1}, 1},
        {"due tomorrow", {.dueOnly = true}, {.due = Day(1)}, 0},
        {"without a date", {.dueOnly = true}, {}, 1},
        {"completed", {.hidesCompleted = true}, {.isCompleted = true}, 0},
        {"open", {.hidesCompleted = true}, {.isPrivate = true}, 1},
        {"private", {.hidesPrivate = true}, {.isPrivate = true}, 0},
        {"public", {.hidesPrivate = true}, {.isCompleted = true}, 1},
        {"of the category", {.category = 3}, {.category = 3}, 1},
        {"of another one", {.category = 3}, {.category = 2}, 0},
        {"none is no category of all", {.category = 0}, {.category = 15}, 0},
        {"a category that no record has", {.category = 17}, {.category = 15}, 0},
    };
    for (const auto& [why, flags, toDo, want] : rows) {
        view->ShowDueItemsOnly(flags.dueOnly);
        view->HideCompletedItems(flags.hidesCompleted);
        view->HidePrivateItems(flags.hidesPrivate);
        view->SetCategoryShown(flags.category);
        EXPECT_EQ(view->PassThruFilter(Make(toDo).get()), want) << why;
    }
}

TEST_F(TodoFilter, AFlagChangesNoRowUntilTheHostFillsAgain) {
    Store({{.name = "open"}, {.name = "done", .placement = 2, .isCompleted = true}});
    Fill();
    view->SelectItem(1, 1);

    view->HideCompletedItems(1);

    EXPECT_EQ(Names(), "open done");
    EXPECT_THAT(Selected(), ElementsAre(1));
    Fill();
    EXPECT_EQ(Names(), "open");
}

TEST_F(TodoFilter, APrivateRecordAmongTheSelectedIsFound) {
    Store({{.placement = 1}, {.placement = 2, .isPrivate = true}});
    Fill();
    view->SelectItem(0, 1);
    EXPECT_EQ(view->IsPrivateRecordSelected(), 0);
    view->SelectItem(1, 1);
    EXPECT_EQ(view->IsPrivateRecordSelected(), 1);
}

}  // namespace
}  // namespace orvo
