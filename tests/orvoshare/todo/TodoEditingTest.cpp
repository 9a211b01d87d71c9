// Choices in the pop-ups of a list of to-dos: what they change, and what the owner is told.
// SPDX-License-Identifier: MIT
#include <orvoshare/todo/TodoFixture.h>
#include <platform/window/base/WindowInput.h>

namespace orvo {
namespace {

using TodoEditing = TodoFixture;

TEST_F(TodoEditing, EachPopupHasItsItems) {
    ShowDays();
    OpenAndClose(1, TodoColumn::Priority);
    EXPECT_THAT(MenuItems(), ElementsAre("9154 1", "9155 2 checked", "9156 3", "9157 4", "9158 5"));
    OpenAndClose(1, TodoColumn::DueDate);
    EXPECT_THAT(MenuItems(), testing::Contains("9148 Tomorrow"));
}

TEST_F(TodoEditing, EachChoiceMovesRepaintsOrRemovesTheRowAndTellsTheOwner) {
    struct Row {
        const char* why;
        eSortOrder order;
        Choice choice;
        const char* rows;
        UINT told;  // 0 for nothing
        int categoryShown = kAllCategories;
        bool dueOnly = false;
    };
    constexpr Row kRows[] = {
        {"first key", eSortByPriorityDueDate, ToPriority(5), "a c b", 1527},
        {"second key", eSortByCategoryPriority, ToPriority(5), "a c b", 1527},
        {"no key", eSortByCategoryDueDate, ToPriority(5), "a b c", 1527},
        {"as it is", eSortByPriorityDueDate, ToPriority(2), "a b c", 0},
        {"not asked", eSortByCategoryDueDate, ToPriority(5), "a b c", 1527, kPersonal},
        {"first key", eSortByDueDatePriority, kToNextWeek, "a c b", 1527},
        {"second key", eSortByPriorityDueDate, kToNoDate, "a b c", 1527},
        {"second key", eSortByCategoryDueDate, kToNoDate, "a c b", 1527},
        {"no key", eSortByCategoryPriority, kToNoDate, "a b c", 1527},
        {"as it is", eSortByDueDatePriority, kToToday, "a b c", 0},
        {"not due", eSortByCategoryPriority, kToTomorrow, "a c", 1526, kAllCategories, true},
        {"no date is due", eSortByCategoryPriority, kToNoDate, "a b c", 1527, kAllCategories, true},
        {"first key", eSortByCategoryDueDate, kToPersonal, "a c b", 1527},
        {"first key", eSortByCategoryPriority, kToPersonal, "a c b", 1527},
        {"no key", eSortByPriorityDueDate, kToPersonal, "a b c", 1527},
        {"no key", eSortByDueDatePriority, kToPersonal, "a b c", 1527},
        {"on show", eSortByPriorityDueDate, kToPersonal, "a b c", 1527, kPersonal},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(std::string(row.why) + ' ' + std::to_string(row.choice.command));
        ShowDays(row.order);
        view->SetCategoryShown(row.categoryShown);
        view->ShowDueItemsOnly(row.dueOnly);
        OpenAndClose(1, row.choice.column);
        view->UpdateWindow();

        view->SendMessage(WM_COMMAND, row.choice.command);
        EXPECT_TRUE(IsRepainted(1) || row.rows != std::string_view("a b c") || row.told == 0);
        PumpMessages();

        EXPECT_EQ(Names(), row.rows);
        EXPECT_EQ(owner.told, row.told != 0 ? std::vector{row.told} : std::vector<UINT>{});
        const bool isLast = row.rows == std::string_view("a c b");
        EXPECT_THAT(Selected(), ElementsAre(isLast ? 2 : 1));
    }
}

TEST_F(TodoEditing, ThePickedDayIsTakenAndACancelledPickerChangesNothing) {
    ShowDays(eSortByDueDatePriority);
    for (const std::optional<CTime> day : {std::optional(CTime(Day(0))), std::optional<CTime>()}) {
        system.AnswerDay(day);
        Choose(1, kToChosenDate);
        EXPECT_EQ(Names(), "a b c");
        EXPECT_THAT(owner.told, IsEmpty());
    }
    system.AnswerDay(CTime(Day(5)));
    Choose(1, kToChosenDate);
    EXPECT_EQ(Names(), "a c b");
    EXPECT_THAT(owner.told, ElementsAre(1527));
}

TEST_F(TodoEditing, TheChosenValueIsStored) {
    ShowDays();
    view->SetMarkCompletionDate(1);
    const std::int64_t id = RecordAt(0)->GetId();

    Choose(0, kToTomorrow);
    Click(0, TodoColumn::Completed);
    Choose(0, ToPriority(5));

    EXPECT_EQ(PriorityOf(*Stored(id)), 5);
    EXPECT_EQ(DueDateOf(*Stored(id)), Day(1));
    EXPECT_EQ(CompletionDateOf(*Stored(id)), CTime::GetCurrentTime().GetTime());
}

TEST_F(TodoEditing, ADateBeyondTheLimitIsRefusedAndTheOldOneKept) {
    for (const int row : {1, 2}) {
        ShowDays();
        view->ShowDueItemsOnly(1);  // which row 2 isn't
        system.AnswerDay(CTime(2050, 1, 1, 0, 0, 0));
        system.AnswerMessageBox(IDOK);
        const std::int64_t id = RecordAt(row)->GetId();

        Choose(row, kToChosenDate);

        EXPECT_EQ(DueDateOf(*Stored(id)), Day(row - 1));
        EXPECT_EQ(Names(), row == 1 ? "a b c" : "a b");
        EXPECT_THAT(owner.told, ElementsAre(row == 1 ? 1527U : 1526U));
        EXPECT_EQ(system.MessageBoxes().back(), "The date is out of range.");
        EXPECT_EQ(system.boxType, 0x30U);
    }
}

TEST_F(TodoEditing, TheLastRowThatGoesLeavesItsSelectionToTheOneBefore) {
    ShowDays();
    view->SetCategoryShown(kBusiness);

    Choose(2, kToPersonal);
    EXPECT_THAT(Selected(), ElementsAre(1));
    Choose(1, kToPersonal);
    EXPECT_THAT(Selected(), ElementsAre(0));
    Choose(0, kToPersonal);
    EXPECT_EQ(Names(), "");
}

TEST_F(TodoEditing, ARowThatGoesBehindTheOpenMessageIsLeftAlone) {
    ShowDays();
    system.AnswerDay(CTime(2050, 1, 1, 0, 0, 0));
    system.AnswerMessageBox(IDOK);
    OpenAndClose(1, TodoColumn::DueDate);
    system.whileOpen = [this] { view->DeleteAll(); };

    view->SendMessage(WM_COMMAND, kToChosenDate.command);
    PumpMessages();

    EXPECT_THAT(owner.told, IsEmpty());
}

}  // namespace
}  // namespace orvo
