// An address view over a table in memory, on a window system without a screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <tuple>

#include <orvoshare/addressviews/DetailViewAddrCard.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>
#include <platform/window/WindowFixture.h>
#include <platform/window/memory/MemoryListPeer.h>
#include <support/AddressFixture.h>
#include <support/CodePages.h>

namespace orvo {

// Cards that count what they are asked for.
class CountingCards : public CDetailViewAddrCard {
public:
    using CDetailViewAddrCard::DVC_IsInSortedPosition;

    int lookups = 0;

    int DV_Lookup(CString key) override {
        ++lookups;
        return CDetailViewAddrCard::DV_Lookup(std::move(key));
    }
};

// People in a table, and what the view `face` shows of them.
struct ViewHands : AddressFixture {
    // Adds a record to the table.
    std::unique_ptr<CAddressRecord> Add(const AddressTexts& texts, int category = 0) {
        auto record = Make(texts);
        EXPECT_EQ(record->SetCategoryId(category), 0);
        EXPECT_EQ(table.Add(*record), 0);
        return record;
    }
    void AddNames(std::initializer_list<const char*> names) {
        for (const char* name : names) Add({{AddressField::Name, name}});
    }
    void Fill(int category = kAllCategories, int hidePrivate = 0, int listBy = kListByName) {
        face->DV_FillFromTable(&table, category, hidePrivate, listBy);
    }
    void FillWith(std::initializer_list<const char*> names) {
        AddNames(names);
        Fill();
    }

    CAddressRecord* RecordAt(int row) const { return RecordOf(face->DV_GetItemData(row)); }
    std::string NameAt(int row) const {
        const CAddressRecord* record = RecordAt(row);
        return record ? std::string(record->Utf8(AddressField::Name)) : "nobody";
    }
    std::string Found(std::string_view typed) { return NameAt(face->DV_Lookup(SystemText(typed))); }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (int row = 0; row < face->DV_GetItemCount(); ++row) names.push_back(NameAt(row));
        return names;
    }
    std::vector<std::string> SelectedNames() const {
        std::vector<std::string> names;
        POSITION position = face->DV_GetFirstSelectedItemPosition();
        while (position) names.push_back(NameAt(face->DV_GetNextSelectedItem(position)));
        return names;
    }
    // Within a card or row of the view.
    CPoint Middle(CWnd& window, int index) const {
        CRect rect;
        auto& peer = dynamic_cast<MemoryListPeer&>(*window.GetPeer());
        EXPECT_TRUE(peer.RowRect(index, RowPart::Bounds, rect)) << index;
        return {rect.left + 20, rect.CenterPoint().y};
    }

    SystemInForce system;
    CDetailViewAddrInf* face = nullptr;
};

inline std::string TextOf(const CLookupEdit& box) {
    CString text;
    box.GetWindowText(text);
    return ToUtf8(text);
}

// Two columns of two cards are in view.
struct ViewFixture : ViewHands {
    ViewFixture() {
        view.Create(WS_POPUP, {0, 0, 600, 400}, nullptr, 0);
        face = &view;
    }
    MemoryListPeer& Peer() { return dynamic_cast<MemoryListPeer&>(*view.GetPeer()); }

    CountingCards view;
};

}  // namespace orvo
