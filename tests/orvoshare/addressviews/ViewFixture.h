// An address view over a table in memory, on a window system without a screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <orvoshare/addressviews/TestView.h>
#include <platform/window/WindowFixture.h>
#include <support/AddressFixture.h>
#include <support/LocaleInForce.h>

namespace orvo {

inline CString InPage(std::string_view utf8) {
    CString text;
    CodePage::System().FromUtf8(utf8, text.Bytes());
    return text;
}

struct ViewFixture : AddressFixture {
    ViewFixture() { view.Create(WS_POPUP | LVS_REPORT, {0, 0, 200, 100}, nullptr, 0); }

    // Adds a record to the table.
    std::unique_ptr<CAddressRecord> Add(std::initializer_list<Text> texts, int category = 0) {
        auto record = Make(texts);
        EXPECT_EQ(record->SetCategoryId(category), 0);
        EXPECT_EQ(table.Add(*record), 0);
        return record;
    }
    void AddNames(std::initializer_list<const char*> names) {
        for (const char* name : names) Add({{AddressField::Name, name}});
    }
    void Fill(int category = kAllCategories, int hidePrivate = 0, int listBy = kListByName) {
        view.DV_FillFromTable(&table, category, hidePrivate, listBy);
    }

    CAddressRecord* RecordAt(int row) { return RecordOf(view.DV_GetItemData(row)); }
    std::string NameAt(int row) {
        const CAddressRecord* record = RecordAt(row);
        return record ? std::string(record->Utf8(AddressField::Name)) : "nobody";
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (int row = 0; row < view.DV_GetItemCount(); ++row) names.push_back(NameAt(row));
        return names;
    }
    std::vector<std::string> SelectedNames() {
        std::vector<std::string> names;
        POSITION position = view.DV_GetFirstSelectedItemPosition();
        while (position) names.push_back(NameAt(view.DV_GetNextSelectedItem(position)));
        return names;
    }

    SystemInForce system;
    TestView view;
};

}  // namespace orvo
