// The rows of an address list: how they come and go, and what the interface asks of the widget.
// SPDX-License-Identifier: MIT
#include <memory>

#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/AddressInsert.h>

namespace orvo {

namespace {

// Leaves the placing of an icon to the control.
constexpr CPoint kNoPlace{-1, -1};

}  // namespace

int CDetailViewAddrList::IsRecordPrivate(DWORD data) {
    const CAddressRecord* record = RecordOf(data);
    return record ? record->IsPrivate() : 0;
}

bool CDetailViewAddrList::IsMaskedRow(int row) {
    return IsRowMasked(GetItemData(row));
}

int CDetailViewAddrList::SortByCompare(PFNLVCOMPARE compare, long listBy) {
    return SortItems(compare, listBy);
}

void CDetailViewAddrList::DV_SetListBy(int nListBy) {
    if (nListBy == m_nListBy) return;
    SetSortOrder(nListBy == kListByCompany ? AddressColumn::Company : AddressColumn::Name, 1);
    m_nListBy = nListBy;
}

int CDetailViewAddrList::DV_InsertRecord(int nIndex, CAddressRecord* pRecord, int bSorted) {
    if (!pRecord) return -1;
    std::unique_ptr<CAddressRecord> record(pRecord);
    const bool isPlaced = bSorted != 0 && GetViewMode() != kReportView;
    if (bSorted != 0) nIndex = static_cast<int>(DV_GetIndexToInsert(pRecord));

    CPoint place = kNoPlace;
    // Nothing stands before the first row.
    if (isPlaced && GetItemPosition(nIndex - 1, &place)) place = place + CPoint{1, 1};
    const int row = InsertRecord(nIndex, pRecord, 1, -1);
    if (row < 0) return row;
    static_cast<void>(record.release());  // the row's from now on
    if (isPlaced) SetItemPosition(row, place);
    return row;
}

unsigned long CDetailViewAddrList::DV_GetIndexToInsert(CAddressRecord* pRecord) {
    return IndexToInsert(*this, pRecord);
}

int CDetailViewAddrList::DV_DeleteItem(int nIndex) {
    // The record may be freed now, and its address be given to another.
    if (RecordOf(GetItemData(nIndex)) == m_pMenuRecord) m_pMenuRecord = nullptr;
    const int result = DeleteItem(nIndex);
    if (GetViewMode() == kReportView) Invalidate();
    return result;
}

void CDetailViewAddrList::DV_DeleteAll() {
    if (DV_GetItemCount() == 0) return;
    DeleteItemData();
    DeleteAllItems();
}

void CDetailViewAddrList::DeleteItemData() {
    m_pMenuRecord = nullptr;
    const int count = DV_GetItemCount();
    for (int row = 0; row < count; ++row) {
        const std::unique_ptr<CAddressRecord> record(RecordOf(GetItemData(row)));
        // The row can still be painted, or asked for its tip.
        if (record) SetItemData(row, 0);
    }
}

void CDetailViewAddrList::OnDestroy() {
    DeleteItemData();
    COrvoUIListViewCtrl::OnDestroy();
}

int CDetailViewAddrList::DV_SetSortOrder(int nColumn, int nOrder) {
    return SetSortOrder(nColumn, nOrder);
}

int CDetailViewAddrList::DV_GetItemCount() {
    return GetItemCount();
}

unsigned long CDetailViewAddrList::DV_GetItemData(int nIndex) {
    return GetItemData(nIndex);
}

unsigned CDetailViewAddrList::DV_GetSelectedCount() {
    return static_cast<unsigned>(GetSelectedCount());
}

void CDetailViewAddrList::DV_SelectAllItems(int bSelect) {
    SelectAllItems(bSelect);
}

int CDetailViewAddrList::DV_SelectItem(int nIndex, int bSelect) {
    return SelectItem(nIndex, bSelect);
}

void CDetailViewAddrList::DV_SelectAndScroll(int nIndex) {
    SelectAndScroll(nIndex);
}

int CDetailViewAddrList::DV_IsItemSelected(int nIndex) {
    return IsItemSelected(nIndex);
}

int CDetailViewAddrList::DV_GetFirstSelectedItem() {
    return GetFirstSelectedItem();
}

int CDetailViewAddrList::DV_GetFocusedItem() {
    return GetFocusedItem();
}

POSITION CDetailViewAddrList::DV_GetFirstSelectedItemPosition() {
    return GetFirstSelectedItemPosition();
}

int CDetailViewAddrList::DV_GetNextSelectedItem(POSITION& pos) {
    return GetNextSelectedItem(pos);
}

int CDetailViewAddrList::DV_Update(int nIndex) {
    return Update(nIndex);
}

void CDetailViewAddrList::DV_SetRedraw(int bRedraw) {
    SetRedraw(bRedraw);
}

int CDetailViewAddrList::DV_EnsureVisible(int nIndex, int bPartialOK) {
    return EnsureVisible(nIndex, bPartialOK);
}

HWND CDetailViewAddrList::DV_GetHwnd() {
    return GetSafeHwnd();
}

int CDetailViewAddrList::DV_FindItemByData(long lData) {
    return FindItemByData(lData);
}

void CDetailViewAddrList::DV_SetMaskPrivate(int bMask) {
    SetMaskPrivate(bMask);
}

void CDetailViewAddrList::DV_FillFromTable(CAddressTable* pTable, int nCategory, int bHidePrivate,
                                           int nListBy) {
    DVC_FillFromTable(pTable, nCategory, bHidePrivate, nListBy);
}

int CDetailViewAddrList::DV_Lookup(CString strKey) {
    return DVC_Lookup(std::move(strKey));
}

int CDetailViewAddrList::DV_ReSort(int nIndex, int nCategory, int bHidePrivate) {
    return DVC_ReSort(nIndex, nCategory, bHidePrivate);
}

int CDetailViewAddrList::DV_Resort() {
    return DVC_Resort();
}

int CDetailViewAddrList::DV_IsPrivateRecordSelected() {
    return DVC_IsPrivateRecordSelected();
}

int CDetailViewAddrList::DV_VerifyCategoryAndPrivate(CAddressRecord* pRecord, int nCategory,
                                                     int bHidePrivate) {
    return DVC_VerifyCategoryAndPrivate(pRecord, nCategory, bHidePrivate);
}

int CDetailViewAddrList::DV_VerifyCategoryAndPrivate(int nIndex, int nCategory, int bHidePrivate) {
    return DVC_VerifyCategoryAndPrivate(nIndex, nCategory, bHidePrivate);
}

}  // namespace orvo
