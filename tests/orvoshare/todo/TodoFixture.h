// A list of to-dos in a window, and clocks that stand.
// SPDX-License-Identifier: MIT
#pragma once

#include <contracts/Dates.h>
#include <orvoshare/RecordListFixture.h>
#include <orvoshare/todo/TodoListbox.h>
#include <platform/time/CTime.h>
#include <platform/time/TickCount.h>

namespace orvo {

// What a test says of a to-do; the rest doesn't matter to it.
struct AToDo {
    std::string_view name = "";
    int priority = 3;
    long due = kMaxDate;
    int category = kNoCategory;
    int placement = 1;
    bool isCompleted = false;
    bool isPrivate = false;
    bool isArchived = false;
};

// Writes down what changes its rows.
class TodoList : public InReach<CTodoListbox> {
public:
    using CTodoListbox::AddByCategory;
    using CTodoListbox::StrikeOutEntry;

    std::vector<std::string> changes;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_SETREDRAW) changes.emplace_back(wParam != 0 ? "drawing" : "no drawing");
        if (message == LVM_INSERTITEM) changes.emplace_back("insert");
        if (message == LVM_DELETEITEM) changes.emplace_back("delete");
        if (message == LVM_DELETEALLITEMS) changes.emplace_back("empty");
        if (message == LVM_SORTITEMS) changes.emplace_back("sort");
        return InReach::WindowProc(message, wParam, lParam);
    }
};

constexpr Choice ToPriority(UINT priority) {
    return {TodoColumn::Priority, ID_TODO_PRIORITY_FIRST + priority - 1};
}
constexpr Choice kToToday{TodoColumn::DueDate, 9147};
constexpr Choice kToTomorrow{TodoColumn::DueDate, 9148};
constexpr Choice kToNextWeek{TodoColumn::DueDate, 9149};
constexpr Choice kToNoDate{TodoColumn::DueDate, 9150};
constexpr Choice kToChosenDate{TodoColumn::DueDate, 9151};
constexpr Choice kToggle{TodoColumn::Completed, 0};

constexpr auto kUnknownOrder = static_cast<eSortOrder>(4);

// The start of a day, counted from today, which is 2026-03-14.
inline long Day(int days) {
    return CTime(2026, 3, 14 + days, 0, 0, 0).GetTime();
}

// It is noon.
class TodoFixture : public RecordListFixture<TodoList, CToDoTable, CToDoRecord> {
protected:
    explicit TodoFixture(const LocaleCase& page = kBothCodePages[0]) : RecordListFixture(page) {
        CTime::SetClock(CTime(2026, 3, 14, 12, 0, 0).GetTime());
        SetTickClock([this] { return ++ticks; });
        view = NewView();
    }
    ~TodoFixture() override {
        SetTickClock(nullptr);
        CTime::SetClock(-1);
    }

    // Set up as a host does, but for the heading.
    std::unique_ptr<TodoList> Bare() {
        auto made = std::make_unique<TodoList>();
        made->Create(LVS_REPORT | LVS_OWNERDRAWFIXED, {0, 0, 700, 400}, &owner, 1);
        EXPECT_EQ(made->Initialize(), 1);
        return made;
    }
    std::unique_ptr<TodoList> NewView() {
        auto made = Bare();
        made->ShowDefaultHeading();
        made->SetCategoryCombo(&combo);
        made->SetFocus();
        return made;
    }

    std::unique_ptr<CToDoRecord> Make(const AToDo& toDo) {
        auto record = std::make_unique<CToDoRecord>(table, 1);
        EXPECT_EQ(record->SetDescriptionUtf8(toDo.name), 0) << toDo.name;
        record->SetPriority(toDo.priority);
        record->SetDueDate(toDo.due);
        record->SetCategoryId(toDo.category);
        record->SetPlacementPos(toDo.placement);
        record->SetCompleted(toDo.isCompleted, 0);
        record->SetPrivate(toDo.isPrivate);
        record->SetArchived(toDo.isArchived);
        return record;
    }
    std::unique_ptr<CToDoRecord> MakeNamed(std::string_view name) { return Make({name}); }
    void Store(std::initializer_list<AToDo> toDos) {
        for (const AToDo& toDo : toDos) EXPECT_EQ(table.Add(*Make(toDo)), 0) << toDo.name;
    }

    // Stored to-dos, as the only rows and in this order.
    void Show(std::initializer_list<AToDo> toDos) {
        view->RefreshAllItemData(&table);
        view->DeleteAll();
        for (const AToDo& toDo : toDos) Append(toDo);
    }
    void Show(std::initializer_list<const char*> names, int category) {
        Show({});
        for (const char* name : names) Append({.name = name, .category = category});
    }
    void Append(const AToDo& toDo) {
        auto record = Make(toDo);
        EXPECT_EQ(table.Add(*record), 0) << toDo.name;
        view->InsertRecord(view->GetItemCount(), record.release(), 0);
    }
    // A new list with three rows: due yesterday, today and tomorrow, with priorities 1 to 3.
    void ShowDays(eSortOrder order = eSortByPriorityDueDate) {
        owner.told.clear();
        view = NewView();
        view->SetSortOrder(order);
        Show({{"a", 1, Day(-1), kBusiness},
              {"b", 2, Day(0), kBusiness},
              {"c", 3, Day(1), kBusiness}});
    }
    void Fill() { view->RefreshAllItemData(&table); }
    void InsertFirst(std::string_view name) { view->InsertRecord(0, MakeNamed(name).release(), 0); }
    void Empty() { view->DeleteAll(); }
    void TakeOut(int row) {
        view->SetCategoryShown(7);
        EXPECT_NE(view->ReSort(row), -1);
    }
    void SetCategoryShown(int category) { view->SetCategoryShown(category); }
    void SetCombo(CCategoryCombo* box) { view->SetCategoryCombo(box); }

    std::vector<CRect> Lines() const {
        std::vector<CRect> lines;
        for (const DrawOperation& each : Peer().Drawn()) {
            if (each.kind == DrawOperation::Kind::Line) lines.push_back(each.rect);
        }
        return lines;
    }

    static constexpr Choice kChoices[] = {ToPriority(5), kToToday, kToPersonal, kToggle};
    static constexpr UINT kRowChanged = ID_TODO_ROW_CHANGED;
    static constexpr UINT kRowGone = ID_TODO_ROW_REMOVED;
    static constexpr const char* kHeadingKey = "ToDoHeading";
    static constexpr const char* kDefaultHeading = "(7) 6 29 1 30 0 330 2 65 3 110 4 29 5 29 (0)";

    std::uint32_t ticks = 0;  // goes on with each look at the clock
};

}  // namespace orvo
