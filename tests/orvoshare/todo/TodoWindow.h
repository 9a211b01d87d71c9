// A list of to-dos in a window, with an owner that is told, a scratch store and clocks that stand.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <contracts/Dates.h>
#include <libraries/quire/MemoryEngine.h>
#include <orvoshare/todo/TodoListbox.h>
#include <platform/settings/SettingsFixture.h>
#include <platform/text/CodePage.h>
#include <platform/time/CTime.h>
#include <platform/time/TickCount.h>
#include <platform/window/MemoryListPeer.h>
#include <platform/window/WindowFixture.h>
#include <support/LocaleInForce.h>

namespace orvo {

// Writes down the commands that the list posts, and the message of its Return key.
class TodoOwner : public CWnd {
public:
    std::vector<UINT> told;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_COMMAND || message == WM_TODO_RETURN) {
            EXPECT_EQ(lParam, 0);
            told.push_back(message == WM_COMMAND ? static_cast<UINT>(wParam) : message);
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class TodoWindowList : public CTodoListbox {
public:
    using CTodoListbox::DrawColumn;
    using CTodoListbox::m_aColumns;
    using CTodoListbox::StrikeOutEntry;

    // The control's number of a shown column; -1 for a hidden one.
    int IndexOf(int id) {
        for (int index = 0; index < GetHeaderCtrl()->GetItemCount(); ++index) {
            if (SubItemFromIndex(index) == id) return index;
        }
        return -1;
    }
};

// While a menu, a message or the day picker is open, `whileOpen` happens.
struct QuestionSystem : SystemInForce {
    std::function<void()> whileOpen;

    UINT TrackPopupMenu(CMenu& menu, UINT flags, CPoint point, CWnd* window) override {
        const UINT command = SystemInForce::TrackPopupMenu(menu, flags, point, window);
        if (whileOpen) whileOpen();
        return command;
    }
    int ShowMessageBox(CWnd* window, const CString& text, UINT type) override {
        boxTypes.push_back(type);
        if (whileOpen) whileOpen();
        return SystemInForce::ShowMessageBox(window, text, type);
    }
    std::vector<UINT> boxTypes;
};

constexpr int kBusiness = 1;
constexpr int kPersonal = 2;
constexpr UINT kToBusiness = ID_TODO_CATEGORY_FIRST + kBusiness;
constexpr UINT kToPersonal = ID_TODO_CATEGORY_FIRST + kPersonal;

constexpr UINT kToday = 9147;
constexpr UINT kTomorrow = 9148;
constexpr UINT kNextWeek = 9149;
constexpr UINT kNoDate = 9150;
constexpr UINT kChooseDate = 9151;

// The start of a day, counted from today, which is 2026-03-14.
inline long Day(int days) {
    return CTime(2026, 3, 14 + days, 0, 0, 0).GetTime();
}

struct TodoRow {
    std::string_view text;
    int priority = 3;
    long due = kMaxDate;
    int category = kBusiness;
};

// The list stands at (10, 20) on the screen, with its default heading.
class TodoWindowTest : public SettingsFixture {
protected:
    explicit TodoWindowTest(const char* tag = "en-US", unsigned codePage = kUtf8CodePage)
        : locale(tag, codePage) {
        CTime::SetClock(CTime(2026, 3, 14, 12, 0, 0).GetTime());
        SetTickClock([this] { return ++ticks; });
        for (const char* name : {"Business", "Personal"}) {
            auto category = std::make_unique<CCategory>();
            category->SetName(name);
            EXPECT_EQ(table.GetCategoryManager()->Add(category.get()), 0) << name;
            static_cast<void>(category.release());
        }
        owner.Create(WS_POPUP, {10, 20, 710, 420}, nullptr, 0);
        view = NewView();
    }
    ~TodoWindowTest() override {
        view.reset();
        SetTickClock(nullptr);
        CTime::SetClock(-1);
    }

    std::unique_ptr<TodoWindowList> NewView() {
        auto made = std::make_unique<TodoWindowList>();
        made->Create(LVS_REPORT | LVS_OWNERDRAWFIXED, {0, 0, 700, 400}, &owner, 1);
        made->Initialize();
        made->ShowDefaultHeading();
        made->SetCategoryCombo(&combo);
        made->SetFocus();
        return made;
    }

    std::unique_ptr<CToDoRecord> Make(const TodoRow& row) {
        auto record = std::make_unique<CToDoRecord>(table, 1);
        EXPECT_EQ(record->SetDescriptionUtf8(row.text), 0) << row.text;
        EXPECT_EQ(record->SetPriority(row.priority), 0) << row.text;
        EXPECT_EQ(record->SetDueDate(row.due), 0) << row.text;
        EXPECT_EQ(record->SetCategoryId(row.category), 0) << row.text;
        return record;
    }
    // The rows of a list that has no other; they stand in this order.
    void Show(std::initializer_list<TodoRow> rows) {
        view->RefreshAllItemData(&table);
        view->DeleteAll();
        for (const TodoRow& row : rows) {
            auto record = Make(row);
            EXPECT_EQ(table.Add(*record), 0) << row.text;
            view->InsertRecord(view->GetItemCount(), record.release(), 0);
        }
    }

    // A new list with three rows: due yesterday, today and tomorrow, by rising priority.
    void ShowThree(eSortOrder order = eSortByPriorityDueDate) {
        owner.told.clear();
        view = NewView();
        view->SetSortOrder(order);
        Show({{"a", 1, Day(-1)}, {"b", 2, Day(0)}, {"c", 3, Day(1)}});
    }

    CToDoRecord* Record(int row) { return reinterpret_cast<CToDoRecord*>(view->GetItemData(row)); }
    std::string Texts() {
        std::string texts;
        for (int row = 0; row < view->GetItemCount(); ++row) {
            texts += Record(row)->DescriptionUtf8();
        }
        return texts;
    }
    std::vector<int> Selected() {
        std::vector<int> rows;
        POSITION position = view->GetFirstSelectedItemPosition();
        while (position) rows.push_back(view->GetNextSelectedItem(position));
        return rows;
    }

    CPoint Cell(int row, int column) {
        CRect rect;
        EXPECT_NE(view->GetSubItemRect(row, view->IndexOf(column), LVIR_BOUNDS, &rect), 0)
            << row << ' ' << column;
        return rect.CenterPoint();
    }
    void Click(int row, int column) { system.Click(*view, Cell(row, column)); }
    void Choose(int row, int column, UINT command) {
        system.ChooseCommand(command);
        Click(row, column);
    }

    MemoryListPeer& Peer() { return dynamic_cast<MemoryListPeer&>(*view->GetPeer()); }
    std::vector<CRect> Lines() {
        std::vector<CRect> lines;
        for (const DrawOperation& operation : Peer().Drawn()) {
            if (operation.kind == DrawOperation::Kind::Line) lines.push_back(operation.rect);
        }
        return lines;
    }

    LocaleInForce locale;
    QuestionSystem system;
    MemoryEngine engine;
    CToDoTable table{engine};
    CCategoryCombo combo;
    TodoOwner owner;
    std::uint32_t ticks = 0;  // goes on with each look at the clock
    std::unique_ptr<TodoWindowList> view;
};

}  // namespace orvo
