// Clicks on a list of to-dos: what they change, and what the owner is told.
// SPDX-License-Identifier: MIT
#include <contract/FaultyEngine.h>
#include <orvoshare/todo/TodoWindow.h>

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using TodoEditing = TodoWindowTest;

int ColumnOf(UINT command) {
    if (command >= ID_TODO_PRIORITY_FIRST) return TodoColumn::Priority;
    return command >= ID_TODO_DATE_FIRST ? TodoColumn::DueDate : TodoColumn::Category;
}

TEST_F(TodoEditing, EachChoiceMovesRepaintsOrRemovesTheRowAndTellsTheOwner) {
    struct Row {
        const char* why;
        eSortOrder order;
        UINT command;
        const char* rows;
        UINT told;  // 0 for nothing
        int categoryShown = kAllCategories;
        bool dueOnly = false;
    };
    constexpr Row kRows[] = {
        {"first key", eSortByPriorityDueDate, 9158, "acb", 1527},
        {"second key", eSortByCategoryPriority, 9158, "acb", 1527},
        {"no key", eSortByCategoryDueDate, 9158, "abc", 1527},
        {"as it is", eSortByPriorityDueDate, 9155, "abc", 0},
        {"not on show, but not asked", eSortByCategoryDueDate, 9158, "abc", 1527, kPersonal},
        {"first key", eSortByDueDatePriority, kNextWeek, "acb", 1527},
        {"second key", eSortByPriorityDueDate, kNoDate, "abc", 1527},
        {"second key", eSortByCategoryDueDate, kNoDate, "acb", 1527},
        {"no key", eSortByCategoryPriority, kNoDate, "abc", 1527},
        {"as it is", eSortByDueDatePriority, kToday, "abc", 0},
        {"not due", eSortByCategoryPriority, kTomorrow, "ac", 1526, kAllCategories, true},
        {"no date is due", eSortByCategoryPriority, kNoDate, "abc", 1527, kAllCategories, true},
        {"first key", eSortByCategoryDueDate, kToPersonal, "acb", 1527},
        {"first key", eSortByCategoryPriority, kToPersonal, "acb", 1527},
        {"no key", eSortByPriorityDueDate, kToPersonal, "abc", 1527},
        {"no key", eSortByDueDatePriority, kToPersonal, "abc", 1527},
        {"as it is", eSortByCategoryDueDate, kToBusiness, "abc", 0},
        {"not on show", eSortByCategoryDueDate, kToPersonal, "ac", 1526, kBusiness},
        {"on show", eSortByPriorityDueDate, kToPersonal, "abc", 1527, kPersonal},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(std::string(row.why) + ' ' + std::to_string(row.command));
        ShowThree(row.order);
        view->SetCategoryShown(row.categoryShown);
        view->ShowDueItemsOnly(row.dueOnly);

        Choose(1, ColumnOf(row.command), row.command);

        const std::string rows = row.rows;
        EXPECT_EQ(Texts(), rows);
        EXPECT_EQ(owner.told, row.told != 0 ? std::vector{row.told} : std::vector<UINT>{});
        const std::size_t selected = row.told == 1526 ? 1 : rows.find('b');
        EXPECT_THAT(Selected(), ElementsAre(selected));
    }
}

TEST_F(TodoEditing, EachToggleByClickRepaintsMovesOrRemovesTheRowAndTellsTheOwner) {
    struct Row {
        const char* why;
        bool wasCompleted;
        bool hidesCompleted;
        bool hidesPrivate;  // which the row is
        bool marksDate;
        const char* rows;
        UINT told;
        std::size_t strokes;
    };
    constexpr Row kRows[] = {
        {"completed", false, false, false, false, "abc", 1527, 0},
        {"completed with its date, out of place", false, false, false, true, "acb", 1527, 0},
        {"completed, and hidden", false, true, false, false, "ac", 1526, 30},
        {"completed, and not shown for another reason", false, false, true, false, "ac", 1526, 0},
        {"undone", true, false, false, false, "abc", 1527, 0},
        {"undone, with a mark for others", true, true, false, true, "abc", 1527, 0},
        {"undone, and not shown", true, true, true, false, "ac", 1526, 0},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.why);
        ShowThree();
        Record(1)->SetPriority(5);
        Record(1)->SetPrivate(1);
        Record(1)->SetCompleted(row.wasCompleted, 0);
        view->HideCompletedItems(row.hidesCompleted);
        view->HidePrivateItems(row.hidesPrivate);
        view->SetMarkCompletionDate(row.marksDate);

        Click(1, TodoColumn::Completed);

        EXPECT_EQ(Texts(), row.rows);
        EXPECT_THAT(owner.told, ElementsAre(row.told));
        EXPECT_EQ(Lines().size(), row.strokes);
        EXPECT_THAT(Selected(), ElementsAre(row.marksDate && !row.wasCompleted ? 2 : 1));
    }
}

TEST_F(TodoEditing, ThePickedDayIsTakenAndACancelledPickerChangesNothing) {
    struct Row {
        std::optional<CTime> day;
        const char* rows;
        std::vector<UINT> told;
    };
    const Row rows[] = {
        {CTime(Day(5)), "acb", {1527}}, {CTime(Day(0)), "abc", {}}, {std::nullopt, "abc", {}}};
    for (const Row& row : rows) {
        ShowThree(eSortByDueDatePriority);
        system.AnswerDay(row.day);
        Choose(1, TodoColumn::DueDate, kChooseDate);
        EXPECT_EQ(Texts(), row.rows);
        EXPECT_EQ(owner.told, row.told);
    }
}

TEST_F(TodoEditing, AChangedRowThatStaysIsRepainted) {
    const UINT commands[] = {9158, kNoDate, kToPersonal};
    const eSortOrder orders[] = {eSortByCategoryDueDate, eSortByCategoryPriority,
                                 eSortByPriorityDueDate};
    const auto repainted = [this] {
        CRect row;
        view->GetItemRect(1, &row, LVIR_BOUNDS);
        const CRect area = Peer().InvalidArea();
        return area.top == row.top && area.bottom == row.bottom;
    };
    for (std::size_t i = 0; i < std::size(commands); ++i) {
        ShowThree(orders[i]);
        Choose(1, ColumnOf(commands[i]), 0);
        view->UpdateWindow();
        view->SendMessage(WM_COMMAND, commands[i]);
        EXPECT_TRUE(repainted()) << commands[i];
    }
    view->UpdateWindow();
    view->SendMessage(WM_CHAR, '-');
    EXPECT_TRUE(repainted()) << "by the minus key";
    view->UpdateWindow();
    Click(1, TodoColumn::Completed);
    EXPECT_TRUE(repainted()) << "by a click";
}

TEST_F(TodoEditing, TheChosenValueIsStored) {
    ShowThree();
    view->SetMarkCompletionDate(1);
    const std::int64_t id = Record(0)->GetId();

    Choose(0, TodoColumn::DueDate, kTomorrow);
    Choose(0, TodoColumn::Category, kToPersonal);
    Click(0, TodoColumn::Completed);
    Choose(0, TodoColumn::Priority, 9154 + 4);

    CToDoRecord stored(table);
    ASSERT_EQ(table.Find(id, stored), 0);
    int priority = 0;
    int category = 0;
    long due = 0;
    long completion = 0;
    stored.GetPriority(priority);
    stored.GetCategoryId(category);
    stored.GetDueDate(due);
    stored.GetCompletionDate(completion);
    EXPECT_EQ(priority, 5);
    EXPECT_EQ(category, kPersonal);
    EXPECT_EQ(due, Day(1));
    EXPECT_EQ(completion, CTime::GetCurrentTime().GetTime());
}

TEST_F(TodoEditing, ADateBeyondTheLimitIsRefusedAndTheOldOneKept) {
    struct Row {
        bool dueOnly;
        int row;
        const char* rows;
        UINT told;
    };
    constexpr Row kRows[] = {
        {false, 1, "abc", 1527}, {true, 1, "abc", 1527}, {true, 2, "ab", 1526}};
    for (const Row& row : kRows) {
        ShowThree();
        view->ShowDueItemsOnly(row.dueOnly);
        system.AnswerDay(CTime(2050, 1, 1, 0, 0, 0));
        system.AnswerMessageBox(IDOK);
        const std::int64_t id = Record(row.row)->GetId();

        Choose(row.row, TodoColumn::DueDate, kChooseDate);

        CToDoRecord stored(table);
        ASSERT_EQ(table.Find(id, stored), 0);
        long due = 0;
        stored.GetDueDate(due);
        EXPECT_EQ(due, Day(row.row - 1));
        EXPECT_EQ(Texts(), row.rows);
        EXPECT_THAT(owner.told, ElementsAre(row.told));
        EXPECT_EQ(system.MessageBoxes().back(), "The date is out of range.");
        EXPECT_EQ(system.boxTypes.back(), 0x30U);
    }
}

TEST_F(TodoEditing, TheLastRowThatGoesLeavesItsSelectionToTheOneBefore) {
    ShowThree();
    view->SetCategoryShown(kBusiness);

    for (const char* left : {"ab", "a", ""}) {
        Choose(view->GetItemCount() - 1, TodoColumn::Category, kToPersonal);
        EXPECT_EQ(Texts(), left);
        if (*left != '\0') {
            EXPECT_THAT(Selected(), ElementsAre(view->GetItemCount() - 1));
        }
    }
    EXPECT_THAT(owner.told, ElementsAre(1526, 1526, 1526));
}

TEST_F(TodoEditing, AListenerMayTakeTheRowOutFirst) {
    struct Case {
        int column;
        UINT command;
    };
    constexpr Case kCases[] = {{TodoColumn::Priority, 9158},
                               {TodoColumn::DueDate, kNoDate},
                               {TodoColumn::Category, kToPersonal},
                               {TodoColumn::Completed, 0}};
    for (const Case& each : kCases) {
        table.SetListener(nullptr);
        ShowThree();
        view->SetCategoryShown(kPersonal);
        table.SetListener([this](const RecordChange&) {
            view->SetCategoryShown(7);
            view->ReSort(1);
        });
        if (each.command != 0) system.ChooseCommand(each.command);

        Click(1, each.column);

        EXPECT_EQ(Texts(), "ac") << each.column;
        EXPECT_THAT(owner.told, ElementsAre(1526)) << each.column;
    }
    table.SetListener(nullptr);
}

TEST_F(TodoEditing, ARefusedChangeLeavesTheRowAndTellsNothing) {
    struct Case {
        int column;
        UINT command;
    };
    constexpr Case kCases[] = {{TodoColumn::Priority, 9158},
                               {TodoColumn::DueDate, kNoDate},
                               {TodoColumn::Category, 1574},
                               {TodoColumn::Completed, 0}};
    FaultyEngine faulty(engine);
    CToDoTable other(faulty);
    CToDoRecord record(other);
    ASSERT_EQ(other.Add(record), 0);
    view->HideCompletedItems(1);
    view->RefreshAllItemData(&other);
    Record(0)->SetCategoryId(kBusiness);
    for (const Case& each : kCases) {
        faulty.FailNext(FaultyEngine::Op::Update, "disk is full");
        if (each.command != 0) system.ChooseCommand(each.command);

        Click(0, each.column);

        EXPECT_EQ(view->GetItemCount(), 1) << each.column;
        EXPECT_EQ(Record(0)->IsCompleted(), 0);
        EXPECT_THAT(owner.told, IsEmpty()) << each.column;
    }
    faulty.FailNext(FaultyEngine::Op::Update, "disk is full");
    system.TypeText("-");
    EXPECT_EQ(view->GetItemCount(), 1);
    EXPECT_THAT(owner.told, IsEmpty());
    view->DeleteAll();
}

TEST_F(TodoEditing, TheOwnerThatWasSetIsTold) {
    TodoOwner other;
    other.Create(WS_POPUP, {0, 0, 10, 10}, nullptr, 0);
    ShowThree();
    view->SetOwner(&other);

    Click(0, TodoColumn::Completed);
    system.PressKey(VK_RETURN);

    EXPECT_THAT(other.told, ElementsAre(1527, 48843));
    EXPECT_THAT(owner.told, IsEmpty());
}

}  // namespace
}  // namespace orvo
