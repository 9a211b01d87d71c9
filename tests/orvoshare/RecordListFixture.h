// A list of records in a window that is told, with a scratch store and settings of its own.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <tuple>

#include <contract/FaultyEngine.h>
#include <contract/RecordValues.h>
#include <contracts/ListWidget.h>
#include <libraries/quire/MemoryEngine.h>
#include <orvoshare/ModuleInForce.h>
#include <platform/settings/SettingsFixture.h>
#include <platform/text/SystemText.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/memory/MemoryListPeer.h>
#include <platform/window/pictures/RecordingCanvas.h>
#include <support/CodePages.h>
#include <support/OwnerWindow.h>

namespace orvo {

// While a menu, a message or the day picker is open, `whileOpen` happens.
struct InterruptedSystem : SystemInForce {
    std::function<void()> whileOpen;
    UINT boxType = 0;  // of the last message

    UINT TrackPopupMenu(CMenu& menu, UINT flags, CPoint point, CWnd* window) override {
        const UINT command = SystemInForce::TrackPopupMenu(menu, flags, point, window);
        if (whileOpen) whileOpen();
        return command;
    }
    int ShowMessageBox(CWnd* window, const CString& text, UINT type) override {
        boxType = type;
        if (whileOpen) whileOpen();
        return SystemInForce::ShowMessageBox(window, text, type);
    }
};

// A list whose insides are in reach.
template <class List>
class InReach : public List {
public:
    using List::DrawColumn;
    using List::m_aColumns;

    // The control's number of a shown column; -1 for a hidden one.
    int IndexOf(int id) const {
        for (int index = 0; this->SubItemFromIndex(index) != -1; ++index) {
            if (this->SubItemFromIndex(index) == id) return index;
        }
        return -1;
    }
};

// A cell that takes a click, and what is chosen in its pop-up; 0 for one without a pop-up.
struct Choice {
    int column;
    UINT command;
};

// Columns that all lists have.
constexpr int kNameColumn = 0;
constexpr int kCategoryColumn = 3;
constexpr int kNoteColumn = 4;
constexpr int kPrivateColumn = 5;

constexpr int kBusiness = 1;
constexpr int kPersonal = 2;
constexpr UINT kFirstCategory = 1574;  // command of the first category
constexpr Choice kToBusiness{kCategoryColumn, kFirstCategory + kBusiness};
constexpr Choice kToPersonal{kCategoryColumn, kFirstCategory + kPersonal};

inline std::string_view NameOf(const CAddressRecord& record) {
    return record.Utf8(AddressField::Name);
}
inline std::string_view NameOf(const CToDoRecord& record) {
    return record.DescriptionUtf8();
}

// The owner's window stands at (10, 20) on the screen. The table has the categories Business and
// Personal.
template <class List, class Table, class Record>
class RecordListFixture : public SettingsFixture {
protected:
    explicit RecordListFixture(const LocaleCase& page) : locale(page.tag, page.codePage) {
        for (const char* name : {"Business", "Personal"}) AddCategory(table, name);
        owner.Create(WS_POPUP, {10, 20, 710, 420}, nullptr, 0);
    }

    // A record as it is stored.
    std::unique_ptr<Record> Stored(std::int64_t id) {
        auto record = std::make_unique<Record>(table);
        EXPECT_EQ(table.Find(id, *record), 0);
        return record;
    }
    void StoreDamaged(TableKind kind, int category = kNoCategory) {
        StoredRow damaged;
        damaged.category = category;
        damaged.fields = "\x01\x7F too short";
        EXPECT_EQ(engine.Insert(kind, damaged, {}), StoreStatus::Ok);
    }

    Record* RecordAt(int row) const { return reinterpret_cast<Record*>(view->GetItemData(row)); }
    // Those of all rows, with blanks between them.
    std::string Names() const {
        std::string names;
        for (int row = 0; row < view->GetItemCount(); ++row) {
            const Record* record = RecordAt(row);
            names += row == 0 ? "" : " ";
            names += record ? NameOf(*record) : "none";
        }
        return names;
    }
    std::vector<int> Selected() const {
        std::vector<int> rows;
        POSITION position = view->GetFirstSelectedItemPosition();
        while (position) rows.push_back(view->GetNextSelectedItem(position));
        return rows;
    }

    CPoint Cell(int row, int column) const {
        CRect rect;
        EXPECT_NE(view->GetSubItemRect(row, view->IndexOf(column), LVIR_BOUNDS, &rect), 0)
            << row << ' ' << column;
        return rect.CenterPoint();
    }
    void Click(int row, int column, UINT flags = 0) {
        system.Click(*view, Cell(row, column), flags);
    }
    void Choose(int row, const Choice& choice) {
        if (choice.command != 0) system.ChooseCommand(choice.command);
        Click(row, choice.column);
    }
    void OpenAndClose(int row, int column) {
        system.ChooseCommand(0);
        Click(row, column);
    }
    // Those of the last menu: "command text", and " checked" behind it.
    std::vector<std::string> MenuItems() const {
        std::vector<std::string> items;
        for (const ShownMenu::Item& item : system.Menus().back().items) {
            items.push_back(std::to_string(item.command) + ' ' + item.text.Bytes());
            if ((item.state & MF_CHECKED) != 0) items.back() += " checked";
        }
        return items;
    }
    bool IsHandAt(CPoint point) {
        system.MovePointer(*view, point);
        return GetCursor() != LoadStandardCursor(IDC_ARROW);
    }

    MemoryListPeer& Peer() const { return dynamic_cast<MemoryListPeer&>(*view->GetPeer()); }
    bool IsRepainted(int row) const {
        CRect bounds;
        view->GetItemRect(row, &bounds, LVIR_BOUNDS);
        const CRect area = Peer().InvalidArea();
        return area.top <= bounds.top && area.bottom >= bounds.bottom;
    }

    // What the cell of a column draws.
    Recording Draw(const Record* record, int id, CRect cell = kCell, int selected = 0) {
        const auto recording = std::make_shared<Recording>();
        RecordingCanvas canvas(recording);
        CDC dc(canvas);
        view->DrawColumn(&dc, view->IndexOf(id), reinterpret_cast<DWORD>(record), cell, kFlags, 0,
                         selected);
        return *recording;
    }
    CString TextOf(const Record& record, int id) {
        CString text;
        for (const DrawOperation& each : Draw(&record, id)) text += each.text;
        return text;
    }

    LocaleInForce locale;
    EnglishModule module;
    InterruptedSystem system;
    MemoryEngine memory;
    FaultyEngine engine{memory};
    Table table{engine};
    CCategoryCombo combo;
    OwnerWindow owner;
    std::unique_ptr<List> view;

    static constexpr UINT kFlags = DT_SINGLELINE | DT_RIGHT;
    static constexpr CRect kCell{10, 20, 200, 45};
};

}  // namespace orvo
