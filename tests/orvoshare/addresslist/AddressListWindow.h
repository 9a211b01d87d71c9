// An address list in a window, with its lookup box, an owner that is told, and a scratch store.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <platform/text/CodePage.h>
#include <platform/window/MemoryListPeer.h>
#include <platform/window/WindowFixture.h>
#include <support/AddressFixture.h>
#include <support/LocaleInForce.h>

namespace orvo {

// Parent and owner of the list: writes down what the list tells it, as "message wParam lParam".
class OwnerWindow : public CWnd {
public:
    std::vector<std::string> told;
    std::vector<UINT> notified;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const bool isFromEdit = message == WM_COMMAND && HIWORD(wParam) != 0;
        if (message == WM_DV_RETURN || (message == WM_COMMAND && !isFromEdit)) {
            told.push_back(std::to_string(message) + ' ' + std::to_string(wParam) + ' ' +
                           std::to_string(lParam));
        }
        if (message == WM_NOTIFY) notified.push_back(PointerOf<NMHDR>(lParam)->code);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

constexpr const char* kReturnTold = "48843 0 0";
constexpr const char* kCategoryTold = "273 1627 0";

// While a menu is open, `whileOpen` happens.
struct MenuSystem : SystemInForce {
    std::function<void()> whileOpen;

    UINT TrackPopupMenu(CMenu& menu, UINT flags, CPoint point, CWnd* owner) override {
        const UINT command = SystemInForce::TrackPopupMenu(menu, flags, point, owner);
        if (whileOpen) whileOpen();
        return command;
    }
};

// The list stands at (10, 20) on the screen, with the columns Name and Category.
class AddressListTest : public testing::Test {
protected:
    explicit AddressListTest(unsigned codePage = kUtf8CodePage) : locale("en-US", codePage) {
        owner.Create(WS_POPUP, {10, 20, 410, 420}, nullptr, 0);
        view.Create(LVS_REPORT, {0, 0, 400, 300}, &owner, 1);
        box.Create(WS_CHILD, {0, 300, 400, 320}, &owner, 2);
        view.Initialize(&table, &combo);
        view.ShowColumn(AddressColumn::Name, 150);
        view.ShowColumn(AddressColumn::Category, 100);
        view.SetViewMode(kReportView);
        view.DV_SetEdit(&box);
        box.SetListBox(&view);
        view.SetFocus();
    }
    ~AddressListTest() override { owner.DestroyWindow(); }

    // Puts people of that category into the store, by family name.
    void Store(std::initializer_list<std::string_view> names, int category = kNoCategory,
               bool isPrivate = false) {
        for (const std::string_view name : names) {
            const auto record = store.Make({{AddressField::Name, name}});
            record->SetCategoryId(category);
            record->SetPrivate(isPrivate);
            EXPECT_EQ(table.Add(*record), 0) << name;
        }
    }
    void Fill(int category = kAllCategories) {
        view.DV_FillFromTable(&table, category, 0, kListByName);
    }

    CAddressRecord* Record(int row) { return RecordOf(view.DV_GetItemData(row)); }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (int row = 0; row < view.DV_GetItemCount(); ++row) {
            const CAddressRecord* record = Record(row);
            names.emplace_back(record ? record->Utf8(AddressField::Name) : "none");
        }
        return names;
    }
    std::vector<int> Selected() {
        std::vector<int> rows;
        POSITION position = view.DV_GetFirstSelectedItemPosition();
        while (position) rows.push_back(view.DV_GetNextSelectedItem(position));
        return rows;
    }

    CPoint Cell(int row, int columnId) {
        int column = 0;
        while (column < 2 && view.SubItemFromIndex(column) != columnId) ++column;
        CRect rect;
        EXPECT_TRUE(view.GetSubItemRect(row, column, LVIR_BOUNDS, &rect)) << row << ' ' << columnId;
        return rect.CenterPoint();
    }
    void ClickCategory(int row) { system.Click(view, Cell(row, AddressColumn::Category)); }

    std::string BoxText() const {
        CString text;
        box.GetWindowText(text);
        std::string utf8;
        CodePage::System().ToUtf8(text.View(), utf8);
        return utf8;
    }
    MemoryListPeer& Peer() { return dynamic_cast<MemoryListPeer&>(*view.GetPeer()); }

    LocaleInForce locale;
    MenuSystem system;
    AddressFixture store;
    CAddressTable& table = store.table;
    CCategoryCombo combo;
    OwnerWindow owner;
    CLookupEdit box;
    CDetailViewAddrList view;
};

}  // namespace orvo
