// A list control that notes what it is told of, and reads of a list.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <platform/text/MultiByte.h>
#include <platform/window/list/CListCtrl.h>
#include <platform/window/pictures/CDC.h>

namespace orvo {

struct NotingList : CListCtrl {
    struct Click {
        UINT code;
        int row;
        int column;
        std::size_t selected;
    };
    std::vector<Click> clicks;
    int changes = 0;
    int clickedHeading = -1;
    bool goesOnClick = false;
    bool goesOnChange = false;

    std::vector<int> Selected() const {
        std::vector<int> rows;
        POSITION position = GetFirstSelectedItemPosition();
        while (position) rows.push_back(GetNextSelectedItem(position));
        return rows;
    }
    int Focus() const { return GetNextItem(-1, LVNI_FOCUSED); }
    std::vector<UINT> ClickCodes() const {
        std::vector<UINT> codes;
        for (const Click& click : clicks) codes.push_back(click.code);
        return codes;
    }
    CRect Part(int row, int part) const {
        CRect rect;
        EXPECT_TRUE(GetItemRect(row, &rect, part)) << row;
        return rect;
    }
    // The middle of a cell.
    CPoint Cell(int row, int column = 0) const {
        CRect rect;
        EXPECT_TRUE(GetSubItemRect(row, column, LVIR_BOUNDS, &rect)) << row;
        return rect.CenterPoint();
    }

    const MessageMap& GetMessageMap() const override {
        using List = NotingList;
        static const MessageMap map{
            ThisMap(),
            {OnNotifyReflect<NM_CLICK>(&List::OnClick), OnNotifyReflect<NM_RCLICK>(&List::OnClick),
             OnNotifyReflect<NM_DBLCLK>(&List::OnClick),
             OnNotifyReflect<LVN_ITEMCHANGED>(&List::OnItemChanged),
             OnNotifyReflect<LVN_GETDISPINFO>(&List::OnGetDispInfo),
             OnNotifyReflect<LVN_GETINFOTIP>(&List::OnGetInfoTip),
             OnNotifyReflect<LVN_COLUMNCLICK>(&List::OnColumnClick)}};
        return map;
    }
    void DrawItem(DRAWITEMSTRUCT* item) override {
        CString text;
        text.Format("row %d%s", item->itemID, item->itemState & ODS_SELECTED ? " selected" : "");
        item->dc->DrawText(text, item->rcItem, DT_SINGLELINE);
    }

private:
    void OnClick(NMHDR* header, LRESULT* result) {
        const auto& activation = *reinterpret_cast<NMITEMACTIVATE*>(header);
        clicks.push_back({header->code, activation.iItem, activation.iSubItem, Selected().size()});
        *result = 1;
        if (goesOnClick) DestroyWindow();
    }
    void OnItemChanged(NMHDR*, LRESULT*) {
        ++changes;
        if (goesOnChange) DestroyWindow();
    }
    void OnGetDispInfo(NMHDR* header, LRESULT*) {
        LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(header)->item;
        if ((item.mask & LVIF_IMAGE) != 0) item.iImage = item.iItem % 2;
        if ((item.mask & LVIF_TEXT) != 0) {
            const std::string text = "asked " + std::to_string(item.lParam);
            lstrcpyn(item.pszText, text.c_str(), item.cchTextMax);
        }
    }
    void OnGetInfoTip(NMHDR* header, LRESULT*) {
        auto& tip = *reinterpret_cast<NMLVGETINFOTIP*>(header);
        const std::string text = "<b>tip of " + std::to_string(tip.iItem);
        lstrcpyn(tip.pszText, text.c_str(), tip.cchTextMax);
    }
    void OnColumnClick(NMHDR* header, LRESULT*) {
        clickedHeading = reinterpret_cast<NMLISTVIEW*>(header)->iSubItem;
    }
};

}  // namespace orvo
