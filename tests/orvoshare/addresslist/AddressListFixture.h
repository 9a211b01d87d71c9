// An address list in a window, with its lookup box.
// SPDX-License-Identifier: MIT
#pragma once

#include <orvoshare/RecordListFixture.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <support/AddressFixture.h>

namespace orvo {

class AddressList : public InReach<CDetailViewAddrList> {
public:
    using CDetailViewAddrList::FormatAddress;
    using CDetailViewAddrList::FormatPhone;
    using CDetailViewAddrList::TruncateName;
};

// The list has the columns Name and Category.
class AddressListFixture : public RecordListFixture<AddressList, CAddressTable, CAddressRecord> {
protected:
    explicit AddressListFixture(const LocaleCase& page = kBothCodePages[0])
        : RecordListFixture(page) {
        box.Create(WS_CHILD, {0, 300, 400, 320}, &owner, 2);
        view = NewView();
    }

    // Set up as a host does, but for the heading.
    std::unique_ptr<AddressList> Bare() {
        auto made = std::make_unique<AddressList>();
        made->Create(LVS_REPORT, {0, 0, 400, 300}, &owner, 1);
        EXPECT_EQ(made->Initialize(&table, &combo), 1);
        return made;
    }
    std::unique_ptr<AddressList> NewView() {
        auto made = Bare();
        made->ShowColumn(AddressColumn::Name, 150);
        made->ShowColumn(AddressColumn::Category, 100);
        made->SetViewMode(kReportView);
        made->DV_SetEdit(&box);
        box.SetListBox(made.get());
        made->SetFocus();
        return made;
    }

    std::unique_ptr<CAddressRecord> Make(const AddressTexts& texts) {
        return MakeAddress(table, texts);
    }
    std::unique_ptr<CAddressRecord> MakeNamed(std::string_view name) {
        return Make({{AddressField::Name, name}});
    }
    // Puts people into the store, by family name.
    void Store(std::initializer_list<std::string_view> names, int category = kNoCategory) {
        for (const std::string_view name : names) {
            const auto record = MakeNamed(name);
            record->SetCategoryId(category);
            EXPECT_EQ(table.Add(*record), 0) << name;
        }
    }

    // Stored people, as the only rows and in this order.
    void Show(std::initializer_list<std::string_view> names, int category) {
        Store(names, category);
        Fill();
        while (view->GetItemCount() > static_cast<int>(names.size())) TakeOut(0);
    }
    // A record that isn't stored, as the only row.
    CAddressRecord& ShowOne(const AddressTexts& texts) {
        view->DV_DeleteAll();
        CAddressRecord* record = Make(texts).release();
        EXPECT_EQ(view->DV_InsertRecord(0, record, 0), 0);
        return *record;
    }
    void Fill(int category = kAllCategories) {
        view->DV_FillFromTable(&table, category, 0, kListByName);
    }
    void InsertFirst(std::string_view name) {
        view->DV_InsertRecord(0, MakeNamed(name).release(), 0);
    }
    void Empty() { view->DV_DeleteAll(); }
    void TakeOut(int row) { EXPECT_EQ(view->DV_ReSort(row, 7, 0), -1); }
    void SetCategoryShown(int category) { view->DV_SetCategory(category); }
    void SetCombo(CCategoryCombo* categories) { view->Initialize(&table, categories); }

    static constexpr Choice kChoices[] = {kToPersonal};
    static constexpr UINT kRowChanged = ID_DV_CATEGORY_CHANGED;
    static constexpr UINT kRowGone = ID_DV_CATEGORY_CHANGED;
    static constexpr const char* kHeadingKey = "AddressHeading";
    static constexpr const char* kHiddenByDefault =
        " (14) 1 180 6 180 8 110 9 110 10 110 11 110 17 110 18 110 19 110 20 110 21 110 22 110 "
        "23 110 24 110";
    const CString kDefaultHeading =
        CString("(6) 0 180 2 180 7 110 3 110 5 29 4 29") + kHiddenByDefault;

    CLookupEdit box;
};

}  // namespace orvo
