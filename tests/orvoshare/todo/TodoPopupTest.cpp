// The pop-ups of a list of to-dos: how they open, and rows that change behind them.
// SPDX-License-Identifier: MIT
#include <orvoshare/todo/TodoWindow.h>
#include <platform/window/WindowInput.h>

namespace orvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using TodoPopup = TodoWindowTest;

TEST_F(TodoPopup, EachPopupOpensBelowTheRowWithItsItems) {
    struct Row {
        int column;
        std::vector<std::string> items;
    };
    const Row rows[] = {
        {TodoColumn::Priority, {"9154 1", "9155 2 checked", "9156 3", "9157 4", "9158 5"}},
        {TodoColumn::DueDate,
         {"9147 Today", "9148 Tomorrow", "9149 One week later", "9150 No date",
          "9151 Choose date..."}},
        {TodoColumn::Category, {"1574 Uncategorized", "1575 Business", "1576 Personal"}},
    };
    ShowThree();
    for (const Row& row : rows) {
        Choose(1, row.column, 0);

        const ShownMenu& menu = system.Menus().back();
        std::vector<std::string> items;
        for (const ShownMenu::Item& item : menu.items) {
            const bool isChecked = (item.state & MF_CHECKED) != 0;
            items.push_back(std::to_string(item.command) + ' ' + item.text.Bytes() +
                            (isChecked ? " checked" : ""));
        }
        EXPECT_EQ(items, row.items);
        CRect bounds;
        view->GetItemRect(1, &bounds, LVIR_BOUNDS);
        EXPECT_EQ(menu.point, (CPoint{10 + Cell(1, row.column).x, 20 + bounds.bottom}));
        EXPECT_EQ(menu.flags, 0x106U);
        EXPECT_EQ(menu.owner, &owner);
    }
    EXPECT_THAT(owner.told, IsEmpty()) << "a closed menu tells nothing";
}

TEST_F(TodoPopup, WithoutABoxOfCategoriesTheirPopupIsEmpty) {
    ShowThree();
    view->SetCategoryCombo(nullptr);

    Choose(1, TodoColumn::Category, 0);

    ASSERT_EQ(system.Menus().size(), 1U);
    EXPECT_THAT(system.Menus()[0].items, IsEmpty());
}

TEST_F(TodoPopup, OnlyTheOneSelectedRowIsEditedAndNotBehindItsMask) {
    ShowThree();
    system.Click(*view, Cell(0, TodoColumn::Description));
    system.Click(*view, Cell(1, TodoColumn::Completed), MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
    system.Click(*view, Cell(1, TodoColumn::Completed), MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(0)) << "one row, but not the clicked one";
    system.Click(*view, {Cell(0, TodoColumn::Completed).x, 390});
    view->SelectAllItems(1);
    Click(1, TodoColumn::DueDate);

    Record(0)->SetPrivate(1);
    view->SetMaskPrivate(1);
    for (const int column : {TodoColumn::Completed + 0, TodoColumn::Priority + 0}) {
        Click(0, column);
    }

    EXPECT_THAT(system.Menus(), IsEmpty());
    EXPECT_EQ(Record(0)->IsCompleted() + Record(1)->IsCompleted(), 0);
    EXPECT_THAT(owner.told, IsEmpty());
    view->SetMaskPrivate(0);
    Click(0, TodoColumn::Completed);
    EXPECT_NE(Record(0)->IsCompleted(), 0) << "private, but not masked";
}

TEST_F(TodoPopup, ACommandWithoutItsPopupDoesNothing) {
    ShowThree();
    const auto sendAll = [this] {
        for (UINT command = 1574; command <= 1591; ++command)
            view->SendMessage(WM_COMMAND, command);
        for (UINT command = 9147; command <= 9158; ++command)
            view->SendMessage(WM_COMMAND, command);
        PumpMessages();
    };
    int changes = 0;
    table.SetListener([&](const RecordChange&) { ++changes; });

    sendAll();
    Choose(1, TodoColumn::Priority, 0);
    view->DeleteAll();
    sendAll();
    ShowThree();
    changes = 0;
    sendAll();
    Choose(1, TodoColumn::Category, 0);
    for (const UINT command : {1590U, 1591U}) view->SendMessage(WM_COMMAND, command);
    PumpMessages();

    EXPECT_EQ(changes, 0);
    EXPECT_THAT(owner.told, IsEmpty());
    table.SetListener(nullptr);
}

TEST_F(TodoPopup, ARowThatIsAnothersWhenTheMenuClosesIsLeftAlone) {
    struct Case {
        const char* why;
        std::function<void()> whileOpen;
    };
    const Case cases[] = {
        {"emptied", [&] { view->DeleteAll(); }},
        {"filled again", [&] { view->RefreshAllItemData(&table); }},
        {"a row came before it", [&] { view->InsertRecord(0, Make({"x"}).release(), 0); }},
        {"its record was filtered out",
         [&] {
             view->HideCompletedItems(1);
             Record(1)->SetCompleted(1, 0);
             view->ReSort(1);
         }},
        {"the window went", [&] { view->DestroyWindow(); }},
    };
    struct Choice {
        int column;
        UINT command;
    };
    constexpr Choice kChoices[] = {{TodoColumn::Priority, 9158},
                                   {TodoColumn::DueDate, kNoDate},
                                   {TodoColumn::Category, kToPersonal}};
    for (const Case& each : cases) {
        for (const Choice& choice : kChoices) {
            system.whileOpen = nullptr;
            ShowThree();
            system.whileOpen = each.whileOpen;

            Choose(1, choice.column, choice.command);

            EXPECT_THAT(owner.told, IsEmpty()) << each.why << ' ' << choice.command;
        }
    }
}

TEST_F(TodoPopup, ARowThatGoesBehindTheOpenMessageIsLeftAlone) {
    ShowThree();
    system.AnswerDay(CTime(2050, 1, 1, 0, 0, 0));
    system.AnswerMessageBox(IDOK);
    Choose(1, TodoColumn::DueDate, 0);
    system.whileOpen = [this] { view->DeleteAll(); };

    view->SendMessage(WM_COMMAND, kChooseDate);
    PumpMessages();

    EXPECT_THAT(owner.told, IsEmpty());
}

}  // namespace
}  // namespace orvo
