// The list widget: its rows, its selection, and how a row is painted.
// SPDX-License-Identifier: MIT
#include <contracts/ListWidget.h>
#include <libraries/orvoui/CellLook.h>
#include <platform/window/pictures/Contrast.h>

namespace orvo {

COrvoUIListViewCtrl::COrvoUIListViewCtrl() = default;
COrvoUIListViewCtrl::~COrvoUIListViewCtrl() = default;

const MessageMap& COrvoUIListViewCtrl::ThisMap() {
    static const MessageMap map{CListCtrl::ThisMap(),
                                {On<WM_SYSCOLORCHANGE>(&COrvoUIListViewCtrl::OnSysColorChange)}};
    return map;
}

void COrvoUIListViewCtrl::PreSubclassWindow() {
    // The heading of an earlier window is gone with it.
    m_shownIds.clear();
    for (COrvoLVColumn& column : m_aColumns) column.bShown = 0;
    ModifyStyle(0, LVS_OWNERDRAWFIXED);
}

int COrvoUIListViewCtrl::IsRecordPrivate(DWORD) {
    return 0;
}

int COrvoUIListViewCtrl::SetViewMode(int mode) {
    const bool isKnown = mode == kLargeIconView || mode == kReportView || mode == kSmallIconView;
    return isKnown && SetView(mode);
}

int COrvoUIListViewCtrl::GetViewMode() const {
    return GetView();
}

int COrvoUIListViewCtrl::InsertRecord(int row, void* data, int asksText, int image) {
    if (!GetSafeHwnd()) return -1;
    LVITEM item;
    item.mask = LVIF_PARAM;
    item.iItem = row;
    item.lParam = LParamOf(data);
    item.iImage = image;
    item.pszText = LPSTR_TEXTCALLBACK;
    if (asksText != 0) item.mask |= LVIF_TEXT | LVIF_IMAGE;
    if (image >= 0) item.mask |= LVIF_IMAGE;
    return InsertItem(item);
}

int COrvoUIListViewCtrl::FindItemByData(long data) const {
    LVFINDINFO wanted;
    wanted.flags = LVFI_PARAM;
    wanted.lParam = data;
    return FindItem(wanted);
}

int COrvoUIListViewCtrl::SelectItem(int row, int select) {
    if (row < 0) return 0;  // to the control, row -1 is every row
    if (select == 0) return SetItemState(row, 0, LVIS_SELECTED);
    SetSelectionMark(row);
    return SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void COrvoUIListViewCtrl::SelectAllItems(int select) {
    SetItemState(-1, select != 0 ? LVIS_SELECTED : 0, LVIS_SELECTED);
}

void COrvoUIListViewCtrl::SelectAndScroll(int row) {
    if (row < 0 || row >= GetItemCount()) return;
    // A row that is the only selected one stays so, and no change is reported.
    const bool isOnlyOne = IsItemSelected(row) != 0 && GetSelectedCount() == 1;
    if (!isOnlyOne) SelectAllItems(0);
    SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    SetSelectionMark(row);
    EnsureVisible(row, 0);
}

int COrvoUIListViewCtrl::IsItemSelected(int row) const {
    return GetItemState(row, LVIS_SELECTED) != 0;
}

int COrvoUIListViewCtrl::GetFirstSelectedItem() const {
    return GetNextItem(-1, LVNI_SELECTED);
}

int COrvoUIListViewCtrl::GetFocusedItem() const {
    return GetNextItem(-1, LVNI_FOCUSED);
}

void COrvoUIListViewCtrl::SetMaskPrivate(int mask) {
    m_bMaskPrivate = mask;
    Invalidate();
}

void COrvoUIListViewCtrl::SetControlColors() {
    Invalidate();
}

void COrvoUIListViewCtrl::OnSysColorChange() {
    CListCtrl::OnSysColorChange();
    SetControlColors();
}

void COrvoUIListViewCtrl::DrawItem(DRAWITEMSTRUCT* item) {
    const bool isSelected = (item->itemState & ODS_SELECTED) != 0;
    COLORREF text = 0;
    COLORREF ground = 0;
    OUIGetColors(isSelected ? kSelectedTextColour : kTextColour, &text, &ground, nullptr, nullptr);
    item->dc->FillSolidRect(item->rcItem, ground);
    if (IsRowMasked(item->itemData)) {
        DrawMask(*item);
    } else {
        DrawCells(*item);
    }
    if ((item->itemState & ODS_FOCUS) == 0) return;
    const COLORREF before = item->dc->SetTextColor(text);
    item->dc->DrawFocusRect(item->rcItem);
    item->dc->SetTextColor(before);
}

void COrvoUIListViewCtrl::DrawCells(const DRAWITEMSTRUCT& item) {
    const int isSelected = (item.itemState & ODS_SELECTED) != 0;
    const bool isLive = (item.itemState & (ODS_SELECTED | ODS_FOCUS | ODS_HOTLIGHT)) != 0;
    for (const int column : ColumnsOnScreen()) {
        CRect cell;
        if (!GetSubItemRect(item.itemID, column, LVIR_BOUNDS, &cell)) continue;
        const CellLookInForce look({isLive, IsPlaceholder(column, item.itemData)});
        DrawColumn(item.dc, column, item.itemData, cell, TextFlags(column), 0, isSelected);
    }
}

void COrvoUIListViewCtrl::DrawColumn(CDC*, int, DWORD, CRect&, UINT, int, int) {}

bool COrvoUIListViewCtrl::IsPlaceholder(int, DWORD) {
    return false;
}

// A bar of the same size for every row: that something is hidden may be seen, but not how much.
void COrvoUIListViewCtrl::DrawMask(const DRAWITEMSTRUCT& item) const {
    constexpr int kBarStrength = 2;
    const bool isSelected = (item.itemState & ODS_SELECTED) != 0;
    COLORREF text = 0;
    COLORREF ground = 0;
    OUIGetColors(isSelected ? kSelectedTextColour : kTextColour, &text, &ground, nullptr, nullptr);
    CRect bar = item.rcItem;
    GetMainItemRect(item.itemID, &bar);
    bar.DeflateRect(kCellTextOffset, bar.Height() / 3);
    if (bar.IsRectEmpty()) return;
    const COLORREF soft = MixColours(ground, text, kBarStrength);
    item.dc->FillSolidRect(bar, Readable(soft, text, ground, kMarkContrast));
}

}  // namespace orvo
