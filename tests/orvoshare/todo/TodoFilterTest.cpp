// Which to-dos the list shows.
// SPDX-License-Identifier: MIT
#include <orvoshare/todo/TodoFixture.h>

namespace orvo {
namespace {

using testing::ElementsAre;

using TodoFilter = TodoFixture;

struct Flags {
    bool dueOnly = false, hidesCompleted = false, hidesPrivate = false;
    int category = kAllCategories;
};

TEST_F(TodoFilter, EachTestAloneKeepsARecordOut) {
    struct Row {
        const char* why;
        Flags flags;
        AToDo toDo;
        int want;
    };
    const Row rows[] = {
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
    for (const Row& row : rows) {
        view->ShowDueItemsOnly(row.flags.dueOnly);
        view->HideCompletedItems(row.flags.hidesCompleted);
        view->HidePrivateItems(row.flags.hidesPrivate);
        view->SetCategoryShown(row.flags.category);
        EXPECT_EQ(view->PassThruFilter(Make(row.toDo).get()), row.want) << row.why;
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
