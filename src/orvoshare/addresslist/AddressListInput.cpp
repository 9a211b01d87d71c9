// The user's keys, clicks and pointer over an address list, and the categories' pop-up.
// SPDX-License-Identifier: MIT
#include <memory>

#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <platform/window/base/WindowSystem.h>

namespace orvo {

namespace {

constexpr UINT kCategoryMenuFlags = TPM_CENTERALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD;

CCategoryMgr* CategoriesOf(CAddressTable* table) {
    return table ? table->GetCategoryManager() : nullptr;
}

}  // namespace

const MessageMap& CDetailViewAddrList::ThisMap() {
    static const MessageMap map{
        COrvoUIListViewCtrl::ThisMap(),
        {On<WM_DESTROY>(&CDetailViewAddrList::OnDestroy),
         On<WM_KEYDOWN>(&CDetailViewAddrList::OnKeyDown),
         On<WM_SETCURSOR>(&CDetailViewAddrList::OnSetCursor),
         On<WM_LBUTTONDOWN>(&CDetailViewAddrList::OnLButtonDown),
         OnNotifyReflect<NM_CLICK>(&CDetailViewAddrList::OnClick),
         OnNotifyReflect<LVN_GETDISPINFO>(&CDetailViewAddrList::OnGetDispInfo),
         OnNotifyReflect<LVN_GETINFOTIP>(&CDetailViewAddrList::OnGetInfoTip),
         On<WM_CHAR>(&CDetailViewAddrList::OnChar),
         OnCommandRange(ID_DV_CATEGORY_FIRST, ID_DV_CATEGORY_LAST,
                        &CDetailViewAddrList::OnCategoryChange),
         On<WM_SYSCOLORCHANGE>(&CDetailViewAddrList::OnSysColorChange)}};
    return map;
}

BOOL CDetailViewAddrList::PreTranslateMessage(MSG* message) {
    const bool isKey = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
    if (!isKey || message->wParam != VK_RETURN) return 0;
    if (const CWnd* owner = GetOwner()) owner->PostMessage(WM_DV_RETURN);
    return 1;
}

bool CDetailViewAddrList::IsOverCategory(CPoint point) {
    if (GetViewMode() != kReportView) return false;
    LVHITTESTINFO hit;
    hit.pt = point;
    hit.flags = LVHT_ONITEM;
    const int row = SubItemHitTest(&hit);
    if (row == -1 || IsMaskedRow(row) || HitTest(point) == -1) return false;
    return SubItemFromIndex(hit.iSubItem) == AddressColumn::Category;
}

BOOL CDetailViewAddrList::OnSetCursor(CWnd* window, UINT hitCode, UINT message) {
    CPoint point;
    GetCursorPos(&point);
    ScreenToClient(&point);
    if (message == 0 || !IsOverCategory(point)) {
        return COrvoUIListViewCtrl::OnSetCursor(window, hitCode, message);
    }
    SetCursor(m_hHandCursor);
    return 1;
}

void CDetailViewAddrList::OnClick(NMHDR* header, LRESULT*) {
    const auto& click = *reinterpret_cast<const NMITEMACTIVATE*>(header);
    const int row = click.iItem;
    if (GetViewMode() != kReportView || row == -1) return;
    if (GetSelectedCount() != 1 || GetFirstSelectedItem() != row) return;
    if (!RecordOf(GetItemData(row)) || IsMaskedRow(row)) return;
    if (SubItemFromIndex(click.iSubItem) == AddressColumn::Category) {
        ShowCategoryMenu(row, click.ptAction);
    }
}

void CDetailViewAddrList::ShowCategoryMenu(int row, CPoint point) {
    CMenu menu;
    menu.CreatePopupMenu();
    CCategoryMgr* categories = CategoriesOf(m_pAddressTable);
    if (categories && m_pCategoryCombo) {
        FillCategoryMenu(categories, m_pCategoryCombo, &menu, ID_DV_CATEGORY_FIRST);
    }
    CRect bounds;
    GetItemRect(row, &bounds, LVIR_BOUNDS);
    CPoint corner{point.x, bounds.bottom};
    ClientToScreen(&corner);

    // While the menu is open the rows can change, or the window go.
    m_pMenuRecord = RecordOf(GetItemData(row));
    const BOOL command = menu.TrackPopupMenu(kCategoryMenuFlags, corner.x, corner.y, GetParent());
    if (command != 0) PostMessage(WM_COMMAND, static_cast<WPARAM>(command));
    m_nMenuRow = row;
}

void CDetailViewAddrList::OnCategoryChange(UINT command) {
    CCategoryMgr* categories = CategoriesOf(m_pAddressTable);
    CAddressRecord* record = RecordOf(GetItemData(m_nMenuRow));
    if (!categories || !record || record != m_pMenuRecord) return;

    const int chosen = static_cast<int>(command - ID_DV_CATEGORY_FIRST);
    if (chosen >= kCategoryCount) return;
    int present = chosen;
    if (record->GetCategoryId(present) != 0 || present == chosen) return;
    if (record->SetCategoryId(chosen) != 0) return;

    // Whoever listens to the table may have taken the row out already.
    const bool isHere = RecordOf(GetItemData(m_nMenuRow)) == record;
    if (isHere && m_nCategoryShown != kAllCategories) {
        const std::unique_ptr<CAddressRecord> gone(record);
        DV_DeleteItem(m_nMenuRow);
    }
    Update(m_nMenuRow);
    if (const CWnd* owner = GetOwner()) owner->PostMessage(WM_COMMAND, ID_DV_CATEGORY_CHANGED);
}

}  // namespace orvo
