// A list of to-dos over a scratch store, in a zone and at a moment of its own.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <contracts/Dates.h>
#include <libraries/quire/MemoryEngine.h>
#include <orvoshare/todo/TodoListbox.h>
#include <platform/text/CodePage.h>
#include <platform/time/CTime.h>
#include <platform/time/ZonedTest.h>
#include <platform/window/MemoryListPeer.h>
#include <platform/window/WindowFixture.h>
#include <support/LocaleInForce.h>

namespace orvo {

// What a test says of a to-do; the rest doesn't matter to it.
struct AToDo {
    const char* name = "";
    int priority = 3;
    long due = kMaxDate;
    int category = kNoCategory;
    int placement = 1;
    bool isCompleted = false;
    bool isPrivate = false;
    bool isArchived = false;
};

// Writes down what changes its rows.
class TodoListInReach : public CTodoListbox {
public:
    using CTodoListbox::AddByCategory;

    std::vector<std::string> told;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_SETREDRAW) told.emplace_back(wParam != 0 ? "drawing" : "no drawing");
        if (message == LVM_INSERTITEM) told.emplace_back("insert");
        if (message == LVM_DELETEITEM) told.emplace_back("delete");
        if (message == LVM_DELETEALLITEMS) told.emplace_back("empty");
        if (message == LVM_SORTITEMS) told.emplace_back("sort");
        return CTodoListbox::WindowProc(message, wParam, lParam);
    }
};

// It is 2026-05-03 12:00 in Tokyo. The list is a report without columns.
class TodoListTest : public ZonedTest {
protected:
    explicit TodoListTest(const char* tag = "en-US", unsigned codePage = kUtf8CodePage)
        : locale(tag, codePage) {
        SetSystemTimeZone("Asia/Tokyo");
        CTime::SetClock(DayAt(3, 12));
        view = std::make_unique<TodoListInReach>();
        view->Create(LVS_REPORT, {0, 0, 400, 300}, nullptr, 0);
    }
    ~TodoListTest() override { CTime::SetClock(-1); }

    // A moment of May 2026.
    static long DayAt(int day, int hour = 0) { return CTime(2026, 5, day, hour, 0, 0).GetTime(); }

    std::unique_ptr<CToDoRecord> Make(const AToDo& toDo) {
        auto record = std::make_unique<CToDoRecord>(table, 1);
        record->SetDescription(toDo.name);
        record->SetPriority(toDo.priority);
        record->SetDueDate(toDo.due);
        record->SetCategoryId(toDo.category);
        record->SetPlacementPos(toDo.placement);
        record->SetCompleted(toDo.isCompleted, 0);
        record->SetPrivate(toDo.isPrivate);
        record->SetArchived(toDo.isArchived);
        return record;
    }
    void Store(std::initializer_list<AToDo> toDos) {
        for (const AToDo& toDo : toDos) EXPECT_EQ(table.Add(*Make(toDo)), 0) << toDo.name;
    }
    void StoreDamaged(int category = kNoCategory) {
        StoredRow damaged;
        damaged.category = category;
        damaged.fields = "\x01\x7F too short";
        EXPECT_EQ(engine.Insert(TableKind::ToDo, damaged, {}), StoreStatus::Ok);
    }
    // The index that the table gives the new category.
    int AddCategory(const char* utf8) {
        auto category = std::make_unique<CCategory>();
        category->SetNameUtf8(utf8);
        if (table.GetCategoryManager()->Add(category.get()) != 0) {
            ADD_FAILURE() << utf8;
            return -1;
        }
        return category.release()->GetIndex();
    }

    CToDoRecord* Record(int row) { return reinterpret_cast<CToDoRecord*>(view->GetItemData(row)); }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (int row = 0; row < view->GetItemCount(); ++row) {
            names.emplace_back(Record(row)->DescriptionUtf8());
        }
        return names;
    }
    std::vector<int> Selected() {
        std::vector<int> rows;
        POSITION position = view->GetFirstSelectedItemPosition();
        while (position) rows.push_back(view->GetNextSelectedItem(position));
        return rows;
    }

    LocaleInForce locale;
    SystemInForce system;
    MemoryEngine engine;
    CToDoTable table{engine};
    std::unique_ptr<TodoListInReach> view;
};

}  // namespace orvo
